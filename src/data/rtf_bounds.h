// What a text asks of the control that shows it, found before the control sees it.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "base/text.h"

namespace jotlets {

/// What a control can be given.
struct EditorBounds {
  std::size_t depth;   // of groups inside each other
  std::uint64_t work;  // see `TextWork`
  bool takesLists;     // bulleted paragraphs can be pasted
  bool takesTables;    // not all of them survive being laid out
  bool takesMarks;     // above and below letters, see `HasMark`
  bool undoesLinks;    // that it has found itself
  bool takesFields;    // keeps what they say, links among them
};

/// The system's own control.
inline constexpr EditorBounds kSystemEditor{
    200, std::numeric_limits<std::uint64_t>::max(), true, true, true, true, true};
/// A control whose time grows with the square of what stands between two signs: this takes it some tenths of
/// a second.
inline constexpr EditorBounds kSlowEditor{28, 30'000'000, false, false, false, false, false};

/// How much work a control of the slow kind has with a plain text, in no unit; a link, a change of format and
/// each unit of a long run of letters count for many of a short one.
std::uint64_t TextWork(TextView text);

/// Whether a plain text can be put in.
bool IsEditable(TextView text, const EditorBounds& bounds);

/// What keeps a rich text from the control; empty for nothing. Looks at every byte once or twice.
TextView RtfTrouble(std::string_view rtf, const EditorBounds& bounds);

/// Whether a rich text holds what such an editor leaves out: pictures, objects, notes and headers of pages,
/// or anything behind its last brace.
bool HoldsMoreThanText(std::string_view rtf, const EditorBounds& bounds);

/// The beginning of a text in lines that every control can show, however long its own are.
Text BoundedWords(TextView text);

/// A plain text as rich text.
std::string RtfOfPlainText(TextView text);

}  // namespace jotlets

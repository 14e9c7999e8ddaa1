// Carries out what typing brings along (`editor/typing_aids.h`), so that one step of undoing gives back what
// was typed.
#pragma once

#include <windows.h>

#include <richedit.h>

#include <optional>

#include "base/text.h"
#include "editor/editor_keys.h"
#include "editor/typing_aids.h"
#include "editor/win/font_style.h"

namespace jotlets {

class BEdit;

/// What the aids need to know from outside. Off, every key is the control's.
struct TypingSettings {
  bool on = false;
  std::int32_t bulletIndent = 300;   // twips
  std::optional<EditStyle> heading;  // none: bold and larger
};

/// A paragraph of the text, and how far into it a position is.
struct EditParagraph {
  LONG first = 0;
  Text text;
  std::size_t caret = 0;
};

/// Whether the first paragraph of the selection is an item of a check list.
bool IsInCheckList(const BEdit& edit);

class EditAids {
 public:
  /// A character was put in by typing.
  void AfterTyping(BEdit& edit, const TypingSettings& settings);
  /// Serves one of the editor's keys; false when the key belongs to the text.
  bool OnKey(BEdit& edit, EditorKey key, const TypingSettings& settings);
  /// Ticks the box at a place in client pixels; false when none is there.
  bool OnClick(BEdit& edit, Point at);

  /// Takes the last step back, or all steps of an aid if that was the last.
  void Undo(BEdit& edit);
  void Redo(BEdit& edit);

 private:
  void Apply(BEdit& edit, LONG paragraph, const TypingAid& aid, const TypingSettings& settings);
  void Replace(BEdit& edit, CHARRANGE range, TextView text);
  void MakeHeading(BEdit& edit, LONG paragraph, const TypingSettings& settings);
  void MakeBold(BEdit& edit, LONG paragraph, const TypingAid& aid);
  bool BeginParagraph(BEdit& edit, const TypingSettings& settings);
  bool EndHeading(BEdit& edit, const EditParagraph& paragraph, const TypingSettings& settings);
  bool Indent(BEdit& edit, const TypingSettings& settings, bool further);
  void Tick(BEdit& edit, LONG at);
  void ToggleCheckList(BEdit& edit);
  void Begin() { steps_ = 0; }
  void End(BEdit& edit);

  LONG lastHeading_ = -1;  // where the heading that was made last begins, while no style tells headings
  int steps_ = 0;          // of undoing, that the last aid took
  int undone_ = 0;
};

}  // namespace jotlets

#include "editor/win/edit_text.h"

#include <richedit.h>

#include <algorithm>
#include <vector>

#include "base/win/wide.h"
#include "data/letter_marks.h"
#include "editor/link_text.h"
#include "editor/win/editor_bounds.h"
#include "ui/clipboard.h"

namespace jotlets {
namespace {

constexpr LONG kLinkSearch = 4096;

bool IsEmpty(const CHARRANGE& range) { return range.cpMin == range.cpMax; }

// False when they are those that are shown, or the clipboard cannot be had.
bool CopyOwnColours(BEdit& edit) {
  const std::optional<std::string> rtf = edit.HasLightInk() ? edit.Rtf(true) : std::nullopt;
  if (!rtf) return false;
  const Text words = ReplaceAll(edit.TextBetween(edit.Selection()), u"\r", u"\r\n");
  return PutTextOnClipboard(edit.Handle(), words, *rtf);
}

}  // namespace

void Undo(BEdit& edit) { edit.Aids().Undo(edit); }
void Redo(BEdit& edit) { edit.Aids().Redo(edit); }
void Clear(BEdit& edit) { SendMessageW(edit.Handle(), WM_CLEAR, 0, 0); }
void SelectAll(BEdit& edit) { edit.Select({0, -1}); }

void Copy(BEdit& edit) {
  // Copying nothing would empty the clipboard.
  if (IsEmpty(edit.Selection()) || CopyOwnColours(edit)) return;
  SendMessageW(edit.Handle(), WM_COPY, 0, 0);
}

void Cut(BEdit& edit) {
  if (IsEmpty(edit.Selection())) return;
  SendMessageW(edit.Handle(), CopyOwnColours(edit) ? WM_CLEAR : WM_CUT, 0, 0);
}

void FindBack(BEdit& edit, TextView wanted) {
  if (FindText(edit, wanted, FindStep::kPrevious).count == 0) MessageBeep(MB_OK);
}

void InsertText(BEdit& edit, TextView text) {
  SendMessageW(edit.Handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Wide(Text(text))));
}

bool TakesTyped(char16_t unit) { return BoundsOfEditor().takesMarks || !HasMark(TextView(&unit, 1)); }

std::int32_t NaturalWidth(BEdit& edit) {
  constexpr LRESULT kMaximumLines = 10000;
  const HWND window = edit.Handle();
  const Point scroll = edit.ScrollPosition();
  // No line is wrapped meanwhile.
  SendMessageW(window, EM_SETTARGETDEVICE, 0, 1);
  edit.SetScrollPosition({});
  const LRESULT lines = std::min(SendMessageW(window, EM_GETLINECOUNT, 0, 0), kMaximumLines);
  LONG widest = 0;
  for (LRESULT line = 0; line < lines; ++line) {
    const LRESULT first = SendMessageW(window, EM_LINEINDEX, static_cast<WPARAM>(line), 0);
    const LRESULT length = SendMessageW(window, EM_LINELENGTH, static_cast<WPARAM>(first), 0);
    POINTL end{};
    SendMessageW(window, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&end), first + length);
    widest = std::max(widest, end.x);
  }
  SendMessageW(window, EM_SETTARGETDEVICE, 0, 0);
  edit.SetScrollPosition(scroll);
  return static_cast<std::int32_t>(widest);
}

FoundText FindText(BEdit& edit, TextView wanted, FindStep step) {
  const std::vector<std::size_t> hits = FindAll(edit.TextBetween({0, edit.Length()}), wanted);
  const auto selected = [&edit] {
    const CHARRANGE range = edit.Selection();
    return TextSpan{static_cast<std::size_t>(range.cpMin), static_cast<std::size_t>(range.cpMax)};
  };
  const std::size_t next = NextHit(hits, selected(), step);
  if (next < hits.size()) {
    const auto first = static_cast<LONG>(hits[next]);
    edit.Select({first, first + static_cast<LONG>(wanted.size())});
    SendMessageW(edit.Handle(), EM_SCROLLCARET, 0, 0);
  } else if (step == FindStep::kStay && hits.empty() && !wanted.empty()) {
    // What was found for other words is no hit any more.
    const LONG first = edit.Selection().cpMin;
    edit.Select({first, first});
  }
  return {HitNumber(hits, selected(), wanted.size()), hits.size()};
}

bool OpenSelectedLink(BEdit& edit) {
  const LONG at = edit.Selection().cpMin;
  const LONG first = std::max(at - kLinkSearch, 0l);
  const Text around = edit.TextBetween({first, at + kLinkSearch});
  const Text target = LinkTarget(WordAt(around, static_cast<std::size_t>(at - first)));
  if (target.empty()) return false;
  edit.OpenLink(target);
  return true;
}

bool OpenOrMakeLink(BEdit& edit) {
  if (OpenSelectedLink(edit)) return true;
  const CHARRANGE selection = edit.Selection();
  if (edit.IsReadOnly() || IsEmpty(selection) || selection.cpMax - selection.cpMin > kLinkSearch)
    return false;
  const Text link = LinkFromText(edit.TextBetween(selection));
  if (!link.empty()) InsertText(edit, link);
  return !link.empty();
}

}  // namespace jotlets

#include "editor/win/edit_aids.h"

#include <algorithm>
#include <vector>

#include "base/win/wide.h"
#include "editor/win/edit.h"
#include "editor/win/edit_format.h"
#include "editor/win/edit_style.h"
#include "editor/win/edit_text.h"
#include "editor/win/editor_bounds.h"

namespace jotlets {
namespace {

// Longer paragraphs get no aids: each key would look through all of it.
constexpr LONG kLongestParagraph = 4096;
constexpr LONG kMaxIndent = 20 * 1440;  // twips
constexpr LONG kMaxParagraphs = 1000;
constexpr std::int32_t kHeadingPoints10 = 140;

using Paragraph = EditParagraph;

// The paragraph around a position; nothing for one that is too long.
std::optional<Paragraph> ParagraphAt(const BEdit& edit, LONG at) {
  const LONG from = std::max(at - kLongestParagraph, 0L);
  const Text before = edit.TextBetween({from, at});
  const std::size_t mark = before.rfind(u'\r');
  if (mark == Text::npos && from > 0) return std::nullopt;
  Paragraph paragraph;
  paragraph.text = mark == Text::npos ? before : before.substr(mark + 1);
  paragraph.caret = paragraph.text.size();
  paragraph.first = at - static_cast<LONG>(paragraph.caret);
  const Text after = edit.TextBetween({at, at + kLongestParagraph});
  const std::size_t end = after.find(u'\r');
  if (end == Text::npos && at + kLongestParagraph < edit.Length()) return std::nullopt;
  paragraph.text += after.substr(0, end);
  return paragraph;
}

Bullets BulletsAt(const BEdit& edit) {
  // Which highlights there are makes no difference to lists.
  return edit.Facts({}).bullets.value_or(Bullets::kNoBullets);
}

bool IsEmpty(const CHARRANGE& range) { return range.cpMin == range.cpMax; }

EditStyle HeadingStyle(const BEdit& edit, const TypingSettings& settings) {
  if (settings.heading) return *settings.heading;
  EditStyle style{CurrentFont(edit), {}, {}};
  style.font.bold = true;
  style.font.points10 = std::max(style.font.points10, kHeadingPoints10);
  return style;
}

// Some controls mark a link that they find in what has changed when the step of that has ended, and end over
// undoing what is in no step. A format that changes nothing makes them end one.
void EndStep(HWND edit) {
  CHARFORMAT2W nothing{};
  nothing.cbSize = sizeof nothing;
  if (!BoundsOfEditor().undoesLinks)
    SendMessageW(edit, EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&nothing));
}

}  // namespace

bool IsInCheckList(const BEdit& edit) {
  const auto paragraph = ParagraphAt(edit, edit.Selection().cpMin);
  return paragraph && HasBox(paragraph->text);
}

void EditAids::End(BEdit& edit) {
  undone_ = 0;
  SendMessageW(edit.Handle(), EM_STOPGROUPTYPING, 0, 0);
  SendMessageW(edit.Handle(), EM_SETMODIFY, FALSE, 0);
}

// Whatever changes the text otherwise, by whatever way, sets the mark that `End` takes away.
void EditAids::Undo(BEdit& edit) {
  const bool last = steps_ > 0 && SendMessageW(edit.Handle(), EM_GETMODIFY, 0, 0) == 0;
  const int steps = last ? steps_ : 1;
  for (int i = 0; i < steps; ++i) {
    EndStep(edit.Handle());
    SendMessageW(edit.Handle(), EM_UNDO, 0, 0);
  }
  steps_ = 0;
  if (last) End(edit);
  undone_ = last ? steps : 0;
}

void EditAids::Redo(BEdit& edit) {
  const bool last = undone_ > 0 && SendMessageW(edit.Handle(), EM_GETMODIFY, 0, 0) == 0;
  const int steps = last ? undone_ : 1;
  for (int i = 0; i < steps; ++i) SendMessageW(edit.Handle(), EM_REDO, 0, 0);
  if (last) End(edit);
  steps_ = last ? steps : 0;
}

void EditAids::AfterTyping(BEdit& edit, const TypingSettings& settings) {
  const CHARRANGE selection = edit.Selection();
  if (!settings.on || edit.IsReadOnly() || !IsEmpty(selection)) return;
  const auto paragraph = ParagraphAt(edit, selection.cpMin);
  if (!paragraph) return;
  Apply(edit, paragraph->first, AidAfterTyping(paragraph->text, paragraph->caret, BulletsAt(edit)), settings);
}

void EditAids::Apply(BEdit& edit, LONG paragraph, const TypingAid& aid, const TypingSettings& settings) {
  using Does = TypingAid::Does;
  if (aid.does == Does::kNothing) return;
  Begin();
  const CHARRANGE range{paragraph + static_cast<LONG>(aid.first), paragraph + static_cast<LONG>(aid.last)};
  if (aid.does == Does::kBold) {
    MakeBold(edit, paragraph, aid);
  } else if (!IsEmpty(range)) {
    Replace(edit, range, aid.text);
  }
  if (aid.does == Does::kHeading) MakeHeading(edit, paragraph, settings);
  const bool lists = aid.does == Does::kBulletList || aid.does == Does::kNumberList;
  if (lists || aid.does == Does::kEndList) {
    const Bullets made = aid.does == Does::kNumberList ? Bullets::kNumbers : Bullets::kNormal;
    SetBullets(edit, lists ? made : Bullets::kNoBullets, settings.bulletIndent);
    ++steps_;
    // What follows an inner list is no part of it.
    if (!lists && IndentParagraphs(edit, -kMaxIndent)) ++steps_;
  }
  End(edit);
}

void EditAids::Replace(BEdit& edit, CHARRANGE range, TextView text) {
  edit.Select(range);
  InsertText(edit, text);
  ++steps_;
}

void EditAids::MakeHeading(BEdit& edit, LONG paragraph, const TypingSettings& settings) {
  const auto now = ParagraphAt(edit, paragraph);
  if (!now) return;
  const CHARRANGE caret = edit.Selection();
  edit.Select({paragraph, paragraph + static_cast<LONG>(now->text.size())});
  const EditStyle heading = HeadingStyle(edit, settings);
  lastHeading_ = paragraph;
  ApplyStyle(edit, heading);
  if (heading.paragraphs) ++steps_;
  // Nothing selected, nothing to undo: it is what will be typed that has changed.
  if (!now->text.empty()) ++steps_;
  if (!now->text.empty()) edit.Select(caret);
}

void EditAids::MakeBold(BEdit& edit, LONG paragraph, const TypingAid& aid) {
  constexpr LONG kMark = kBoldMark;
  const LONG first = paragraph + static_cast<LONG>(aid.first);
  const LONG last = paragraph + static_cast<LONG>(aid.last);
  Replace(edit, {last - kMark, last}, {});
  Replace(edit, {first, first + kMark}, {});
  const LONG end = last - 2 * kMark;
  edit.Select({first, end});
  const EditFacts facts = edit.Facts({});
  if (!facts.bold) {
    ToggleEffect(edit, TextEffect::kBold);
    ++steps_;
  }
  edit.Select({end, end});
  // What is typed next is as it was before the marks.
  if (!facts.bold) ToggleEffect(edit, TextEffect::kBold);
}

bool EditAids::OnKey(BEdit& edit, EditorKey key, const TypingSettings& settings) {
  if (!settings.on || edit.IsReadOnly()) return false;
  switch (key) {
    case EditorKey::kIndent: return Indent(edit, settings, true);
    case EditorKey::kOutdent: return Indent(edit, settings, false);
    case EditorKey::kNewItem: return BeginParagraph(edit, settings);
    case EditorKey::kTick: {
      const auto paragraph = ParagraphAt(edit, edit.Selection().cpMin);
      if (paragraph && HasBox(paragraph->text)) Tick(edit, paragraph->first);
      return true;
    }
    case EditorKey::kCheckList: return ToggleCheckList(edit), true;
    default: return false;
  }
}

bool EditAids::BeginParagraph(BEdit& edit, const TypingSettings& settings) {
  const CHARRANGE selection = edit.Selection();
  if (!IsEmpty(selection)) return false;
  const auto paragraph = ParagraphAt(edit, selection.cpMin);
  if (!paragraph) return false;
  const TypingAid aid = AidForEnter(paragraph->text, BulletsAt(edit));
  if (aid.does != TypingAid::Does::kNothing) return Apply(edit, paragraph->first, aid, settings), true;
  if (BoxAfterEnter(paragraph->text, paragraph->caret)) {
    InsertText(edit, u"\r");
    Begin();
    Strike(edit, false);
    Replace(edit, edit.Selection(), Text{kOpenBox, u' '});
    End(edit);
    return true;
  }
  return EndHeading(edit, *paragraph, settings);
}

// What follows a heading is text again.
bool EditAids::EndHeading(BEdit& edit, const EditParagraph& paragraph, const TypingSettings& settings) {
  const bool atEnd = !paragraph.text.empty() && paragraph.caret == paragraph.text.size();
  const bool isHeading =
      settings.heading ? HasFontOf(edit, *settings.heading) : paragraph.first == lastHeading_;
  if (!atEnd || !isHeading) return false;
  InsertText(edit, u"\r");
  SetDefaultFont(edit);
  return true;
}

bool EditAids::Indent(BEdit& edit, const TypingSettings& settings, bool further) {
  const CHARRANGE selection = edit.Selection();
  const auto paragraph = ParagraphAt(edit, selection.cpMin);
  if (!paragraph) return false;
  if (BulletsAt(edit) == Bullets::kNoBullets && !HasBox(paragraph->text)) return false;
  const LONG step = std::max(settings.bulletIndent, 1);
  if (IndentParagraphs(edit, further ? step : -step)) {
    Begin();
    ++steps_;
    End(edit);
  }
  return true;
}

void EditAids::Tick(BEdit& edit, LONG at) {
  const Text box = edit.TextBetween({at, at + 1});
  if (box.empty()) return;
  const CHARRANGE selection = edit.Selection();
  Begin();
  const char16_t other = OtherBox(box.front());
  Replace(edit, {at, at + 1}, Text{other});
  // What is done is struck through.
  if (const auto paragraph = ParagraphAt(edit, at); paragraph && paragraph->text.size() > kBoxLength) {
    edit.Select({at + static_cast<LONG>(kBoxLength), at + static_cast<LONG>(paragraph->text.size())});
    if (Strike(edit, other == kTickedBox)) ++steps_;
  }
  End(edit);
  edit.Select(selection);
}

bool EditAids::OnClick(BEdit& edit, Point at) {
  if (edit.IsReadOnly()) return false;
  POINTL point{at.x, at.y};
  const auto hit =
      static_cast<LONG>(SendMessageW(edit.Handle(), EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&point)));
  const auto paragraph = ParagraphAt(edit, hit);
  if (!paragraph || !HasBox(paragraph->text) || paragraph->caret > 1) return false;
  POINTL box{};
  POINTL behind{};
  SendMessageW(edit.Handle(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&box), paragraph->first);
  SendMessageW(edit.Handle(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&behind), paragraph->first + 1);
  // The place nearest to a click beside or below the text is none that was clicked on.
  const LONG height = (behind.x - box.x) * 2;
  if (at.x < box.x || at.x >= behind.x || at.y < box.y || at.y >= box.y + height) return false;
  Tick(edit, paragraph->first);
  return true;
}

// From the last paragraph to the first, so that places before stay what they are.
void EditAids::ToggleCheckList(BEdit& edit) {
  CHARRANGE selection = edit.Selection();
  std::vector<Paragraph> paragraphs;
  for (LONG at = selection.cpMax, count = 0; count < kMaxParagraphs; ++count) {
    const auto paragraph = ParagraphAt(edit, at);
    if (!paragraph) return;
    paragraphs.push_back(*paragraph);
    if (paragraph->first <= selection.cpMin) break;
    at = paragraph->first - 1;
  }
  const bool all = std::ranges::all_of(paragraphs, [](const Paragraph& p) { return HasBox(p.text); });
  constexpr LONG kBox = kBoxLength;
  Begin();
  if (!all && BulletsAt(edit) != Bullets::kNoBullets) {
    SetBullets(edit, Bullets::kNoBullets, 0);
    ++steps_;
  }
  for (const Paragraph& p : paragraphs) {
    if (all) {
      Replace(edit, {p.first, p.first + kBox}, {});
    } else if (!HasBox(p.text)) {
      Replace(edit, {p.first, p.first}, Text{kOpenBox, u' '});
    }
    const LONG moved = all ? -kBox : HasBox(p.text) ? 0 : kBox;
    selection.cpMax = std::max(selection.cpMax + moved, p.first);
    if (p.first <= selection.cpMin) selection.cpMin = std::max(selection.cpMin + moved, p.first);
  }
  End(edit);
  edit.Select(selection);
}

}  // namespace jotlets

#include "editor/edit_facts.h"

#include <algorithm>
#include <iterator>

#include "editor/win/edit.h"
#include "editor/win/edit_format.h"

namespace jotlets {
namespace {

std::optional<Alignment> AlignmentOf(const PARAFORMAT2& format) {
  if ((format.dwMask & PFM_ALIGNMENT) == 0) return std::nullopt;
  if (format.wAlignment == PFA_CENTER) return Alignment::kCenter;
  return format.wAlignment == PFA_RIGHT ? Alignment::kRight : Alignment::kLeft;
}

std::optional<Bullets> BulletsOf(const PARAFORMAT2& format) {
  if ((format.dwMask & PFM_NUMBERING) == 0) return std::nullopt;
  switch (format.wNumbering) {
    case 0: return Bullets::kNoBullets;
    case PFN_BULLET: return Bullets::kNormal;
    case PFN_LCLETTER:
    case PFN_UCLETTER: return Bullets::kLetters;
    default: return Bullets::kNumbers;
  }
}

std::optional<Highlight> HighlightOf(const CHARFORMAT2W& format, const HighlightColours& colours) {
  if ((format.dwMask & CFM_BACKCOLOR) == 0) return std::nullopt;
  if ((format.dwEffects & CFE_AUTOBACKCOLOR) != 0) return Highlight::kNoHighlight;
  const COLORREF back = format.crBackColor;
  const auto found =
      std::find(colours.begin(), colours.end(), Colour{GetRValue(back), GetGValue(back), GetBValue(back)});
  if (found == colours.end()) return std::nullopt;
  return static_cast<Highlight>(1 + std::distance(colours.begin(), found));
}

}  // namespace

EditFacts BEdit::FormatFacts(const HighlightColours& highlights) const {
  const CHARFORMAT2W characters = CharacterFormat(*this);
  const PARAFORMAT2 paragraphs = ParagraphFormat(*this);
  const DWORD effects = characters.dwMask & characters.dwEffects;
  EditFacts facts;
  facts.bold = (effects & CFE_BOLD) != 0;
  facts.italic = (effects & CFE_ITALIC) != 0;
  facts.underline = (effects & CFE_UNDERLINE) != 0;
  facts.strikethrough = (effects & CFE_STRIKEOUT) != 0;
  facts.rtl = (paragraphs.dwMask & PFM_RTLPARA) != 0 && (paragraphs.wEffects & PFE_RTLPARA) != 0;
  facts.checkList = IsInCheckList(*this);
  facts.alignment = AlignmentOf(paragraphs);
  facts.bullets = BulletsOf(paragraphs);
  facts.highlight = HighlightOf(characters, highlights);
  return facts;
}

EditFacts BEdit::Facts(const HighlightColours& highlights) const {
  const CHARRANGE selection = Selection();
  EditFacts facts = FormatFacts(highlights);
  facts.readOnly = IsReadOnly();
  facts.hasSelection = selection.cpMin != selection.cpMax;
  facts.canUndo = !facts.readOnly && SendMessageW(edit_, EM_CANUNDO, 0, 0) != 0;
  facts.canRedo = !facts.readOnly && SendMessageW(edit_, EM_CANREDO, 0, 0) != 0;
  facts.canPaste = CanPaste();
  return facts;
}

}  // namespace jotlets

#include "editor/win/edit_format.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>

#include "base/win/wide.h"
#include "data/rtf_ink.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr LONG kTwipsPerPoint = 20;
constexpr std::array<LONG, 14> kPointSizes = {8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 28, 36, 48, 72};

constexpr WORD kAlignments[] = {PFA_LEFT, PFA_CENTER, PFA_RIGHT};  // in the order of `Alignment`

CHARFORMAT2W Characters(DWORD mask) {
  CHARFORMAT2W format{};
  format.cbSize = sizeof format;
  format.dwMask = mask;
  return format;
}

PARAFORMAT2 Paragraphs(DWORD mask) {
  PARAFORMAT2 format{};
  format.cbSize = sizeof format;
  format.dwMask = mask;
  return format;
}

void Set(BEdit& edit, const CHARFORMAT2W& format) {
  SendMessageW(edit.Handle(), EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  // Without a selection only what is typed next has changed.
  const CHARRANGE selection = edit.Selection();
  if (selection.cpMin != selection.cpMax) edit.TellChanged();
}

void Set(BEdit& edit, const PARAFORMAT2& format) {
  SendMessageW(edit.Handle(), EM_SETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
  edit.TellChanged();
}

// The selection can be moved about meanwhile: nobody sees it, and it comes back.
class HeldView {
 public:
  explicit HeldView(BEdit& edit)
      : edit_(edit),
        selection_(edit.Selection()),
        scroll_(edit.ScrollPosition()),
        // Switching drawing on would show an editor that is hidden.
        drawn_((GetWindowLongPtrW(edit.Handle(), GWL_STYLE) & WS_VISIBLE) != 0) {
    if (drawn_) SendMessageW(edit_.Handle(), WM_SETREDRAW, FALSE, 0);
  }
  ~HeldView() {
    edit_.Select(selection_);
    edit_.SetScrollPosition(scroll_);
    if (!drawn_) return;
    SendMessageW(edit_.Handle(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(edit_.Handle(), nullptr, TRUE);
  }
  HeldView(const HeldView&) = delete;
  HeldView& operator=(const HeldView&) = delete;

 private:
  BEdit& edit_;
  CHARRANGE selection_;
  Point scroll_;
  bool drawn_;
};

bool HasOneSize(BEdit& edit, LONG first, LONG last) {
  edit.Select({first, last});
  return (CharacterFormat(edit).dwMask & CFM_SIZE) != 0;
}

// Selects the longest run of one size that begins at `first`; its end.
LONG SelectRun(BEdit& edit, LONG first, LONG last) {
  LONG sure = first + 1;
  LONG bound = HasOneSize(edit, first, last) ? (sure = last) : last - 1;
  while (sure < bound) {
    const LONG middle = sure + (bound - sure + 1) / 2;
    if (HasOneSize(edit, first, middle)) {
      sure = middle;
    } else {
      bound = middle - 1;
    }
  }
  edit.Select({first, sure});
  return sure;
}

LONG NextSize(LONG twips, bool larger) {
  const auto above = [&](LONG points) { return points * kTwipsPerPoint > twips; };
  const auto below = [&](LONG points) { return points * kTwipsPerPoint < twips; };
  if (larger) {
    const auto next = std::find_if(kPointSizes.begin(), kPointSizes.end(), above);
    return next == kPointSizes.end() ? twips : *next * kTwipsPerPoint;
  }
  const auto next = std::find_if(kPointSizes.rbegin(), kPointSizes.rend(), below);
  return next == kPointSizes.rend() ? twips : *next * kTwipsPerPoint;
}

void StepSelectedSize(BEdit& edit, bool larger) {
  const LONG size = CharacterFormat(edit).yHeight;
  CHARFORMAT2W format = Characters(CFM_SIZE);
  format.yHeight = NextSize(size, larger);
  if (format.yHeight != size) Set(edit, format);
}

int ScreenDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi;
}

}  // namespace

CHARFORMAT2W CharacterFormat(const BEdit& edit) {
  CHARFORMAT2W format = Characters(0);
  SendMessageW(edit.Handle(), EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  return format;
}

PARAFORMAT2 ParagraphFormat(const BEdit& edit) {
  PARAFORMAT2 format = Paragraphs(0);
  SendMessageW(edit.Handle(), EM_GETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
  return format;
}

FontStyle CurrentFont(const BEdit& edit) {
  const CHARFORMAT2W format = CharacterFormat(edit);
  const DWORD effects = format.dwEffects;
  FontStyle style;
  style.face = FromWide(format.szFaceName, wcsnlen(format.szFaceName, LF_FACESIZE));
  style.points10 = static_cast<std::int32_t>(format.yHeight * 10 / kTwipsPerPoint);
  style.bold = (effects & CFE_BOLD) != 0;
  style.italic = (effects & CFE_ITALIC) != 0;
  style.underline = (effects & CFE_UNDERLINE) != 0;
  style.strikeout = (effects & CFE_STRIKEOUT) != 0;
  if ((effects & CFE_AUTOCOLOR) == 0)
    style.colour = {GetRValue(format.crTextColor), GetGValue(format.crTextColor),
                    GetBValue(format.crTextColor)};
  style.charset = format.bCharSet;
  return style;
}

namespace {

CHARFORMAT2W FormatOf(const FontStyle& style, std::optional<Colour> back) {
  CHARFORMAT2W format = Characters(CFM_FACE | CFM_CHARSET | CFM_SIZE | CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE |
                                   CFM_UNDERLINETYPE | CFM_STRIKEOUT | CFM_COLOR);
  // A style without a font or a size leaves the text its own.
  if (style.face.empty()) format.dwMask &= ~DWORD{CFM_FACE | CFM_CHARSET};
  if (style.points10 <= 0) format.dwMask &= ~CFM_SIZE;
  style.face.copy(reinterpret_cast<char16_t*>(format.szFaceName), LF_FACESIZE - 1);
  format.bCharSet = style.charset;
  format.yHeight = std::clamp<LONG>(style.points10, 0, 16000) * kTwipsPerPoint / 10;
  format.dwEffects = (style.bold ? CFE_BOLD : 0) | (style.italic ? CFE_ITALIC : 0) |
                     (style.underline ? CFE_UNDERLINE : 0) | (style.strikeout ? CFE_STRIKEOUT : 0);
  format.bUnderlineType = style.underline ? CFU_UNDERLINE : CFU_UNDERLINENONE;
  format.crTextColor = ToCOLORREF(style.colour);
  if (back) {
    format.dwMask |= CFM_BACKCOLOR;
    format.crBackColor = ToCOLORREF(*back);
  }
  return format;
}

}  // namespace

void SetFont(BEdit& edit, const FontStyle& style, std::optional<Colour> back) {
  Set(edit, FormatOf(style, back));
}

void SetFontFace(BEdit& edit, TextView face) {
  CHARFORMAT2W format = Characters(CFM_FACE | CFM_CHARSET);
  format.bCharSet = DEFAULT_CHARSET;
  face.copy(reinterpret_cast<char16_t*>(format.szFaceName), LF_FACESIZE - 1);
  Set(edit, format);
}

void SetFontOfAll(BEdit& edit, const FontStyle& style, std::optional<Colour> back) {
  const CHARFORMAT2W format = FormatOf(style, back);
  SendMessageW(edit.Handle(), EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
  edit.TellChanged();
}

void SetParagraphs(BEdit& edit, const ParagraphStyle& style) {
  PARAFORMAT2 format = Paragraphs(PFM_ALIGNMENT | PFM_STARTINDENT | PFM_SPACEBEFORE | PFM_SPACEAFTER);
  format.wAlignment = kAlignments[static_cast<int>(style.alignment)];
  format.dxStartIndent = style.indent;
  format.dySpaceBefore = style.before;
  format.dySpaceAfter = style.after;
  Set(edit, format);
}

std::optional<ParagraphStyle> ParagraphStyleOf(const BEdit& edit) {
  const PARAFORMAT2 format = ParagraphFormat(edit);
  const auto* alignment = std::ranges::find(kAlignments, format.wAlignment);
  ParagraphStyle style;
  if (alignment != std::end(kAlignments)) style.alignment = static_cast<Alignment>(alignment - kAlignments);
  style.indent = std::max<std::int32_t>(format.dxStartIndent, 0);
  style.before = std::max<std::int32_t>(format.dySpaceBefore, 0);
  style.after = std::max<std::int32_t>(format.dySpaceAfter, 0);
  return style == ParagraphStyle() ? std::nullopt : std::optional(style);
}

void SetDefaultFont(BEdit& edit) {
  CHARFORMAT2W format = Characters(0);
  SendMessageW(edit.Handle(), EM_GETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
  Set(edit, format);
}

LOGFONTW ToLogFont(const FontStyle& style) {
  LOGFONTW font{};
  font.lfHeight = -MulDiv(style.points10, ScreenDpi(), 720);
  font.lfWeight = style.bold ? FW_BOLD : FW_NORMAL;
  font.lfItalic = style.italic;
  font.lfUnderline = style.underline;
  font.lfStrikeOut = style.strikeout;
  font.lfCharSet = style.charset;
  style.face.copy(reinterpret_cast<char16_t*>(font.lfFaceName), LF_FACESIZE - 1);
  return font;
}

FontStyle FromLogFont(const LOGFONTW& font, std::int32_t points10, Colour colour) {
  return {Text(FromWide(font.lfFaceName, wcsnlen(font.lfFaceName, LF_FACESIZE))),
          points10,
          font.lfWeight >= FW_SEMIBOLD,
          font.lfItalic != 0,
          font.lfUnderline != 0,
          font.lfStrikeOut != 0,
          colour,
          font.lfCharSet};
}

void ToggleEffect(BEdit& edit, TextEffect effect) {
  const auto bit = static_cast<DWORD>(effect);
  const CHARFORMAT2W current = CharacterFormat(edit);
  const bool all = (current.dwMask & bit) != 0 && (current.dwEffects & bit) != 0;
  CHARFORMAT2W format = Characters(bit);
  format.dwEffects = all ? 0 : bit;
  if (effect == TextEffect::kUnderline) {
    format.dwMask |= CFM_UNDERLINETYPE;
    format.bUnderlineType = all ? CFU_UNDERLINENONE : CFU_UNDERLINE;
  }
  Set(edit, format);
}

bool Strike(BEdit& edit, bool struck) {
  const CHARFORMAT2W current = CharacterFormat(edit);
  const bool all = (current.dwMask & CFM_STRIKEOUT) != 0;
  if (all && ((current.dwEffects & CFE_STRIKEOUT) != 0) == struck) return false;
  CHARFORMAT2W format = Characters(CFM_STRIKEOUT);
  format.dwEffects = struck ? CFE_STRIKEOUT : 0;
  Set(edit, format);
  return true;
}

void StepFontSize(BEdit& edit, bool larger) {
  const CHARRANGE selection = edit.Selection();
  if ((CharacterFormat(edit).dwMask & CFM_SIZE) != 0) {
    StepSelectedSize(edit, larger);
    return;
  }
  const HeldView held(edit);
  for (LONG at = selection.cpMin; at < selection.cpMax;) {
    at = SelectRun(edit, at, selection.cpMax);
    StepSelectedSize(edit, larger);
  }
}

void SetAlignment(BEdit& edit, Alignment alignment) {
  PARAFORMAT2 format = Paragraphs(PFM_ALIGNMENT);
  format.wAlignment = kAlignments[static_cast<int>(alignment)];
  Set(edit, format);
}

void SetDirection(BEdit& edit, bool rightToLeft) {
  PARAFORMAT2 format = Paragraphs(PFM_RTLPARA | PFM_ALIGNMENT);
  format.wEffects = rightToLeft ? PFE_RTLPARA : 0;
  format.wAlignment = rightToLeft ? PFA_RIGHT : PFA_LEFT;
  Set(edit, format);
}

void SetDirectionOfAll(BEdit& edit, bool rightToLeft) {
  const CHARRANGE selection = edit.Selection();
  edit.Select({0, -1});
  SetDirection(edit, rightToLeft);
  edit.Select(selection);
}

void SetBullets(BEdit& edit, Bullets bullets, std::int32_t indent) {
  constexpr WORD kKinds[] = {0, PFN_BULLET, PFN_ARABIC, PFN_LCLETTER};
  constexpr WORD kPeriodBehind = 0x200;
  PARAFORMAT2 format =
      Paragraphs(PFM_NUMBERING | PFM_NUMBERINGSTYLE | PFM_NUMBERINGSTART | PFM_NUMBERINGTAB | PFM_OFFSET);
  format.wNumbering = kKinds[static_cast<int>(bullets)];
  if (bullets != Bullets::kNoBullets) {
    format.wNumberingStart = 1;
    if (bullets != Bullets::kNormal) format.wNumberingStyle = kPeriodBehind;
    // The first line's text begins at the numbering tab, the other lines' at the offset.
    format.wNumberingTab = static_cast<WORD>(std::clamp(indent, 0, 0x7FFF));
    format.dxOffset = format.wNumberingTab;
  }
  Set(edit, format);
}

bool IndentParagraphs(BEdit& edit, LONG twips) {
  constexpr LONG kMaxIndent = 20 * 1440;
  const LONG now = ParagraphFormat(edit).dxStartIndent;
  PARAFORMAT2 format = Paragraphs(PFM_OFFSETINDENT);
  format.dxStartIndent = std::clamp(now + twips, 0L, kMaxIndent) - now;
  if (format.dxStartIndent == 0) return false;
  Set(edit, format);
  return true;
}

void SetHighlight(BEdit& edit, Highlight highlight, const HighlightColours& colours) {
  CHARFORMAT2W format = Characters(CFM_BACKCOLOR);
  const bool none = highlight == Highlight::kNoHighlight;
  if (none) {
    format.dwEffects = CFE_AUTOBACKCOLOR;
  } else {
    format.crBackColor = ToCOLORREF(colours[static_cast<std::size_t>(highlight) - 1]);
  }
  const COLORREF ink = ToCOLORREF(edit.Ink());
  const CHARFORMAT2W current = CharacterFormat(edit);
  const bool oneColour = (current.dwMask & CFM_COLOR) != 0 && (current.dwEffects & CFE_AUTOCOLOR) == 0;
  const COLORREF onMarks = ToCOLORREF(kInkOnMarks);
  if (edit.HasLightInk() && oneColour && current.crTextColor == (none ? onMarks : ink)) {
    format.dwMask |= CFM_COLOR;
    format.crTextColor = none ? ink : onMarks;
  }
  Set(edit, format);
}

LiftedFormat LiftFormat(const BEdit& edit) { return {CharacterFormat(edit), ParagraphFormat(edit)}; }

void ApplyFormat(BEdit& edit, const LiftedFormat& format) {
  CHARFORMAT2W characters = format.characters;
  // What a text is, a link for instance, is not how it looks. The system's mask of effects repeats some
  // flags. NOLINTNEXTLINE(misc-redundant-expression)
  characters.dwMask &= CFM_EFFECTS2 | CFM_FACE | CFM_CHARSET | CFM_SIZE | CFM_OFFSET | CFM_BACKCOLOR |
                       CFM_UNDERLINETYPE | CFM_SPACING;
  // NOLINTEND(misc-redundant-expression)
  characters.dwMask &= ~DWORD{CFM_LINK | CFM_PROTECTED | CFM_HIDDEN | CFM_REVISED};
  Set(edit, characters);
  Set(edit, format.paragraphs);
}

}  // namespace jotlets

#include "editor/win/edit_style.h"

namespace jotlets {
namespace {

constexpr std::int32_t kBoldWeight = 700;
constexpr std::int32_t kBoldFrom = 600;

FontStyle Inked(const BEdit& edit, FontStyle font) {
  if (edit.HasLightInk() && font.colour == Colour{}) font.colour = edit.Ink();
  return font;
}

}  // namespace

EditStyle EditStyleOf(const TextStyle& style) {
  EditStyle made;
  if (!style.IsSet()) return made;
  made.font = {style.faceName,    Points10Of(style),    style.weight >= kBoldFrom,
               style.italic != 0, style.underline != 0, style.strikeOut != 0,
               style.colour,      style.charSet};
  made.back = style.back;
  made.paragraphs = style.paragraphs;
  return made;
}

TextStyle WithFont(TextStyle style, const FontStyle& font) {
  style.faceName = font.face;
  style.points10 = font.points10;
  style.height = -PixelsOfPoints10(font.points10);
  style.weight = font.bold ? kBoldWeight : 400;
  style.italic = font.italic;
  style.underline = font.underline;
  style.strikeOut = font.strikeout;
  style.colour = font.colour;
  style.charSet = font.charset;
  return style;
}

void ApplyStyle(BEdit& edit, const EditStyle& style) {
  if (style.font.face.empty()) return;
  // On its own background, black is black whatever the paper.
  SetFont(edit, style.back ? style.font : Inked(edit, style.font), style.back);
  if (style.paragraphs) SetParagraphs(edit, *style.paragraphs);
}

void ApplyStyleToAll(BEdit& edit, const EditStyle& style) {
  if (style.font.face.empty()) return;
  SetFontOfAll(edit, style.back ? style.font : Inked(edit, style.font), style.back);
  if (!style.paragraphs) return;
  const CHARRANGE selection = edit.Selection();
  edit.Select({0, -1});
  SetParagraphs(edit, *style.paragraphs);
  edit.Select(selection);
}

bool HasFontOf(const BEdit& edit, const EditStyle& style) {
  const FontStyle font = CurrentFont(edit);
  return font == style.font || font == Inked(edit, style.font);
}

TextStyle StyleOfSelection(const BEdit& edit) {
  TextStyle style = WithFont({}, CurrentFont(edit));
  if (edit.HasLightInk() && style.colour == edit.Ink()) style.colour = {};
  const CHARFORMAT2W characters = CharacterFormat(edit);
  if ((characters.dwMask & CFM_BACKCOLOR) != 0 && (characters.dwEffects & CFE_AUTOBACKCOLOR) == 0)
    style.back = {GetRValue(characters.crBackColor), GetGValue(characters.crBackColor),
                  GetBValue(characters.crBackColor)};
  style.paragraphs = ParagraphStyleOf(edit);
  return style;
}

}  // namespace jotlets

// Everything that formats the selected text and paragraphs of an editor. Whether a note may be changed is the
// caller's question.
#pragma once

#include <windows.h>

#include <richedit.h>

#include <optional>

#include "base/geometry.h"
#include "base/text.h"
#include "editor/edit_facts.h"
#include "editor/text_style.h"
#include "editor/win/edit.h"
#include "editor/win/font_style.h"

namespace jotlets {

/// The font of the selection, of its beginning where it is mixed.
FontStyle CurrentFont(const BEdit& edit);
/// Settles the font of the selection, its colour included, and the colour behind it when one is given.
void SetFont(BEdit& edit, const FontStyle& style, std::optional<Colour> back = {});
/// Settles the face alone.
void SetFontFace(BEdit& edit, TextView face);
/// The same for the whole text, and for what will be typed into an empty one.
void SetFontOfAll(BEdit& edit, const FontStyle& style, std::optional<Colour> back);
void SetParagraphs(BEdit& edit, const ParagraphStyle& style);
/// What the first selected paragraph has of that; nothing for one that is as usual.
std::optional<ParagraphStyle> ParagraphStyleOf(const BEdit& edit);
/// The selection looks as text that has no format yet.
void SetDefaultFont(BEdit& edit);
/// The terms of the system's font dialog, sizes in pixels of the screen; the dialog has the colour and the
/// exact size (`iPointSize`, in tenths of a point) beside its LOGFONT.
LOGFONTW ToLogFont(const FontStyle& style);
FontStyle FromLogFont(const LOGFONTW& font, std::int32_t points10, Colour colour);

enum class TextEffect : DWORD {
  kBold = CFE_BOLD,
  kItalic = CFE_ITALIC,
  kUnderline = CFE_UNDERLINE,
  kStrikethrough = CFE_STRIKEOUT
};
/// Gives all of the selection an effect; takes it away when all of it had it.
void ToggleEffect(BEdit& edit, TextEffect effect);
/// Strikes all of the selection through, or no longer; false when it was so already.
bool Strike(BEdit& edit, bool struck);

/// Makes text one size of a fixed list larger or smaller. In a mixed selection every run takes its own step,
/// so that headings stay larger than the rest; each run is then one step of undoing.
void StepFontSize(BEdit& edit, bool larger);

void SetAlignment(BEdit& edit, Alignment alignment);
/// Direction of paragraphs; they move to the side on which their lines begin.
void SetDirection(BEdit& edit, bool rightToLeft);
/// The same for the whole text.
void SetDirectionOfAll(BEdit& edit, bool rightToLeft);
/// `indent` in twips: how far all lines of a list paragraph stand to the right of its bullet.
void SetBullets(BEdit& edit, Bullets bullets, std::int32_t indent);
/// Moves the selected paragraphs to the right, or for less than 0 twips to the left, as far as the first of
/// them can go. False when it cannot.
bool IndentParagraphs(BEdit& edit, LONG twips);
/// On dark paper, text without a colour of its own turns black on the highlight, and back without one.
void SetHighlight(BEdit& edit, Highlight highlight, const HighlightColours& colours);

/// The format of a selection; what differs within it is left out.
struct LiftedFormat {
  CHARFORMAT2W characters;
  PARAFORMAT2 paragraphs;
};
LiftedFormat LiftFormat(const BEdit& edit);
void ApplyFormat(BEdit& edit, const LiftedFormat& format);

/// What the control says of its selection, or of what would be typed. Fields that differ within it are
/// missing from the mask.
CHARFORMAT2W CharacterFormat(const BEdit& edit);
PARAFORMAT2 ParagraphFormat(const BEdit& edit);

}  // namespace jotlets

// Everything that formats the selected text and paragraphs of an editor. Whether a note may be changed is the
// caller's question.
#pragma once

#include <windows.h>

#include <richedit.h>

#include "base/geometry.h"
#include "base/text.h"
#include "note/edit_facts.h"
#include "note/win/edit.h"

namespace jotlets {

/// A font as a person chooses it.
struct FontStyle {
  Text face;
  std::int32_t points10 = 100;  // tenths of a point
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikeout = false;
  Colour colour;
  std::uint8_t charset = DEFAULT_CHARSET;
  friend bool operator==(const FontStyle&, const FontStyle&) = default;
};

/// The font of the selection, of its beginning where it is mixed.
FontStyle CurrentFont(const BEdit& edit);
/// Settles the font of the selection, its colour included.
void SetFont(BEdit& edit, const FontStyle& style);
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

/// Makes text one size of a fixed list larger or smaller. In a mixed selection every run takes its own step,
/// so that headings stay larger than the rest; each run is then one step of undoing.
void StepFontSize(BEdit& edit, bool larger);

void SetAlignment(BEdit& edit, Alignment alignment);
/// Direction of paragraphs; they move to the side on which their lines begin.
void SetDirection(BEdit& edit, bool rightToLeft);
/// `indent` in twips: how far all lines of a list paragraph stand to the right of its bullet.
void SetBullets(BEdit& edit, Bullets bullets, std::int32_t indent);
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

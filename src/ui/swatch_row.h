// Colours or signs to choose from that stand side by side in one entry of a menu. The mouse, or Left and
// Right, mark one of them, and the entry is chosen with the marked one.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <optional>
#include <vector>

#include "base/geometry.h"
#include "base/text.h"
#include "looks/icon.h"
#include "ui/theme.h"

namespace jotlets {

/// A colour and its name, or what stands for no colour, or for all others; or a sign and what it does.
struct Swatch {
  enum class Kind { kColour, kNothing, kOthers, kSign };
  Kind kind = Kind::kColour;
  Colour colour;
  Text name;
  Icon icon = Icon::kNothing;
  bool on = false;  // what the sign does holds already
};

class SwatchRow {
 public:
  /// `spoken` is what a screen reader says, with the marked name as "%s", its place as "%i" and the number of
  /// all as "%n". `current` is the one that holds now.
  SwatchRow(Text spoken, std::vector<Swatch> swatches, std::optional<std::size_t> current);
  ~SwatchRow() = default;
  SwatchRow(const SwatchRow&) = delete;
  SwatchRow& operator=(const SwatchRow&) = delete;

  /// Becomes an entry of a menu, which must not outlive the row.
  void AppendTo(HMENU menu, UINT id, bool enabled);
  UINT Id() const { return id_; }
  std::size_t Marked() const { return marked_; }

  /// Whether the entry is the one that Enter would choose.
  bool IsLit() const;
  /// Marks the next (1) or the one before (-1); the row goes round.
  void Step(int by);
  /// Marks what is under a point of the screen, if the entry is.
  void MarkAt(Point at);

  void Measure(MEASUREITEMSTRUCT& measured, std::int32_t dpi) const;
  void Draw(const DRAWITEMSTRUCT& drawn, std::int32_t dpi, const Theme& theme);

 private:
  std::optional<UINT> Position() const;
  void Mark(std::size_t index);
  void DrawSigns(const DRAWITEMSTRUCT& drawn, std::int32_t dpi, const Theme& theme) const;

  Text spoken_;
  std::vector<Swatch> swatches_;
  std::optional<std::size_t> current_;
  std::size_t marked_ = 0;
  HMENU menu_ = nullptr;
  UINT id_ = 0;
  Text said_;
  MSAAMENUINFO info_{};    // where a screen reader looks for the words of an entry without a text
  HWND window_ = nullptr;  // the menu's, once it has been drawn
  std::int32_t left_ = 0;  // of the first swatch, in the entry
  std::int32_t pitch_ = 1;
};

}  // namespace jotlets

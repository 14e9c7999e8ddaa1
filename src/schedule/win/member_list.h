// Draws the list of a stack's notes into its window.
#pragma once

#include <windows.h>

#include "schedule/stack_rules.h"
#include "skin/win/skin_renderer.h"

namespace jotlets {

struct MemberListLook {
  HFONT font = nullptr;
  Colour paper;                         // that the rows are drawn on
  HFONT awayFont = nullptr;             // of notes that are not on the desktop now
  std::optional<std::size_t> hot;       // the row under the mouse
  std::optional<std::size_t> selected;  // by the keyboard
  bool dropTarget = false;
  std::int32_t dpi = kUsualDpi;
  std::optional<ContrastColours> contrast;
  bool bars = false;  // the colour of a note is a bar, and what is on the desktop bears a mark
};

/// A row for each note: its colour and its title, paler when it is hidden. Rows that the area cuts are drawn
/// as far as they are seen. An empty list shows `hint`.
class MemberListInlay final : public SkinInlay {
 public:
  MemberListInlay(const StackList& list, const std::vector<StackMember>& members, const MemberListLook& look,
                  const Text& hint)
      : list_(list), members_(members), look_(look), hint_(hint) {}

  void Draw(HDC dc) const override;

 private:
  std::int32_t Scaled(std::int32_t length) const { return ScaledLength(length, look_.dpi); }
  bool IsMarked(std::size_t row) const { return look_.hot == row || look_.selected == row; }
  Colour GroundOf(std::size_t row) const;
  Colour InkOf(std::size_t row, bool quiet) const;
  Size SwatchOf(std::int32_t height) const;
  std::int32_t DrawState(HDC dc, const Rect& row, const StackMember& member, Colour ink) const;
  void DrawRow(HDC dc, std::size_t row) const;
  void DrawHint(HDC dc) const;
  void DrawThumb(HDC dc) const;

  StackList list_;
  const std::vector<StackMember>& members_;
  const MemberListLook& look_;
  const Text& hint_;
};

}  // namespace jotlets

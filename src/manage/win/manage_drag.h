// Notes that the mouse drags from the list of the manage window on to views and categories, or out of it.
#pragma once

#include <windows.h>

#include <optional>

#include "manage/win/manage_views.h"

namespace jotlets {

class ManageDrag {
 public:
  /// Where notes can be let go: a row of the views, or else outside of the window.
  struct Target {
    std::optional<ManagePlace> row;
  };

  explicit ManageDrag(ManageViews& views) : views_(views) {}

  bool IsOn() const { return window_ != nullptr; }
  /// The window has the mouse until it lets go, and shows where that would be.
  void Begin(HWND window, ManageView from);
  /// The mouse has moved; nothing where notes cannot be let go.
  std::optional<Target> Follow() const;
  /// The mouse was taken away or has let go.
  void End();

 private:
  std::optional<Target> UnderMouse() const;

  ManageViews& views_;
  HWND window_ = nullptr;
  ManageView from_ = ManageView::kDesktop;
};

}  // namespace jotlets

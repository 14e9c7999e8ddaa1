// What a window tells screen readers of itself and of the parts that it draws. Clients keep the object that
// they are handed for as long as they like, also when its window has long gone: it then knows nothing any
// more.
#pragma once

#include <windows.h>

#include <vector>

#include "base/geometry.h"
#include "base/text.h"
#include "ui/com_object.h"

struct IAccessible;

namespace jotlets {

/// A window, or a part of it, in the words of the system's accessibility.
struct AccessiblePart {
  LONG role = 0;   // ROLE_SYSTEM_...
  LONG state = 0;  // STATE_SYSTEM_...
  Text name;
  Text value;
  Text description;
  Text key;
  Text action;  // what `command` does, in a word
  Rect area;    // in client pixels
  LPARAM command = 0;
  HWND window = nullptr;  // a control that tells of itself
  friend bool operator==(const AccessiblePart&, const AccessiblePart&) = default;
};

/// A window that draws its parts. It is asked while one of its messages is served.
class AccessibleWindow {
 public:
  /// A client wants a part used: wParam 0 does the `command` of the part in lParam, 1 gives it the focus.
  /// Posted, so that the client need not wait for the end of a menu.
  static constexpr UINT kUseMessage = WM_APP + 40;
  enum Use : WPARAM { kDoCommand, kTakeFocus };

  virtual ~AccessibleWindow() = default;
  virtual AccessiblePart SelfPart() const = 0;
  virtual std::vector<AccessiblePart> Parts() const = 0;
};

class WindowAccessible;

/// Belongs to the window that it tells of.
class Accessibility {
 public:
  explicit Accessibility(const AccessibleWindow& of);
  ~Accessibility();
  Accessibility(const Accessibility&) = delete;
  Accessibility& operator=(const Accessibility&) = delete;

  /// Serves WM_GETOBJECT; 0 for what is not asked of this.
  LRESULT OnGetObject(HWND window, WPARAM wParam, LPARAM lParam);
  /// Tells whoever listens what has changed since it was last asked or told. Cheap while nobody has asked.
  void TellChanges();
  /// A part has the focus now.
  static void TellFocus(HWND window, std::size_t part);
  /// The window goes: its object answers no more.
  void End();

 private:
  const AccessibleWindow& of_;
  HWND window_ = nullptr;
  ComPointer<WindowAccessible> object_;
  AccessiblePart toldSelf_;
  std::vector<AccessiblePart> told_;
};

}  // namespace jotlets

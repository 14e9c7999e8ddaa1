// A borderless window on the desktop that its skin draws and the mouse drags: what notes and stacks have in
// common. It knows nothing of what the window is about.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "action/actions.h"
#include "note/frame_layout.h"
#include "note/hover_fade.h"
#include "note/note_place.h"
#include "note/win/note_context.h"
#include "note/win/note_shadow.h"
#include "skin/skin_parts.h"
#include "ui/accessible.h"
#include "ui/window.h"

namespace jotlets {

class SkinnedWindow : public Window, public AccessibleWindow {
 public:
  /// Takes the window away, for good.
  void DestroyWindowNow() {
    access_.End();
    shadow_.Close();
    Destroy();
  }
  const LoadedSkin& Skin() const { return *skin_; }
  /// Takes the keyboard to the buttons at the foot, from there to the title and the other buttons, and back
  /// to the content; or the other way round.
  void GoToParts(bool backwards);
  /// Whether the keyboard is at one of them.
  bool IsAtParts() const { return focusedPart_ != 0; }

 protected:
  /// To be called before the window is created, where its place is to be.
  void PrepareShadow();

  /// What holds the mouse button: the frame, which moves or sizes the window, a button of the skin, or
  /// something in the content.
  enum class Drag { kIdle, kMoving, kSizing, kButton, kContent };
  enum class Press { kPassedOver, kOfContent, kOfFrame };

  /// `context` outlives the window.
  SkinnedWindow(const NoteContext& context, const wchar_t* shadowClass)
      : context_(context), shadow_(shadowClass), access_(*this) {}

  /// Serves what windows of both kinds serve alike; the rest is the system's.
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  /// Draws `part` of the window.
  virtual void Draw(HDC dc, const Rect& part) = 0;
  virtual FramePart PartAt(Point at) const = 0;
  virtual LPCWSTR CursorAt(Point at) const;
  /// Carries out the command of a skin button, or of a double click. False for none of the window's. The
  /// window may be gone when the call returns.
  virtual bool DoSkinAction(ActionCode action, Point at) = 0;
  /// What a button without an action does. The window may be gone when the call returns.
  virtual void DoPart(PartUse) {}
  /// The windows that this one snaps to.
  virtual std::vector<Rect> WindowsToSnapTo() const = 0;

  /// Called first of all for every press.
  virtual void BeginPress() = 0;
  /// Takes a press that is of no button; `ctrl` is how the key was at the press.
  virtual Press PressAt(Point at, bool ctrl) = 0;
  /// Whether a double click here rolls the window up; elsewhere it is a second press.
  virtual bool RollsAt(Point at) const = 0;
  virtual void OnHover(Point at) = 0;
  virtual void OnMouseGone() = 0;
  /// The mouse, at this point of the screen, drags what the press took hold of in the content.
  virtual void DragContent(Point mouse) = 0;
  virtual void DropContent(Point) {}
  /// The window is moved to here, snapped to its neighbours.
  virtual void DragFrame(const Rect& bounds) { Place(bounds); }
  /// Also reached when the capture is taken away in the middle of a drag; `shift` only when the button was
  /// let go with it held after a move.
  virtual void OnDragEnded(Drag ended, bool shift) = 0;

  /// What the skin draws, as parts; those that screen readers are told of may be more.
  virtual std::vector<SkinPart> SkinParts() const = 0;
  std::vector<AccessiblePart> Parts() const override;
  AccessiblePart SelfPart() const override;
  /// Does the command of a part, or takes the keyboard there. The window may be gone when the call returns.
  virtual void UsePart(AccessibleWindow::Use use, LPARAM command);
  /// The control in the content, nullptr for none.
  virtual HWND ContentWindow() const { return nullptr; }
  virtual void FocusContent() = 0;
  /// Serves a key that reaches the frame; false for one that it has no use for.
  bool OnPartKey(WPARAM key);
  /// The keyboard has left the parts.
  void ForgetPart() { focusedPart_ = 0; }
  void TellChanges() { access_.TellChanges(); }

  virtual void OnSize() = 0;
  virtual void OnFocus(bool gained) = 0;
  /// Brings the place up to date with where the window is.
  virtual void SyncPlace() = 0;
  virtual void Place(const Rect& bounds);
  /// The window has come to another scale, `place_.Dpi()`, and is to have its skin.
  virtual void OnScaleChanged() = 0;

  /// Fills in what of the view is the window's own: all but size, mouse and scroll bar.
  virtual void FillView() = 0;
  virtual ScrollState Scrolled() const = 0;
  /// The colours of the sheets whose edges are seen below the window.
  virtual std::vector<Colour> SheetsBelow() const { return {}; }
  /// What the window shows has changed from this.
  virtual void Invalidate(const SkinView&) { Repaint(); }

  void UpdateView();
  void Repaint() { InvalidateRect(Handle(), nullptr, FALSE); }
  void ApplyRegion();
  /// How opaque the window is, 255 for all of it, and what colour of the skin is see-through.
  void ApplyAlpha(BYTE alpha);
  void FollowWithShadow(bool orderChanged = false);
  bool PlaceOnScreens(const MonitorSetup& screens);
  /// Before other windows, and before all that are not always on top if it is one of these.
  void Raise(bool onTop);
  void KeepOnTop(bool onTop);
  /// The skin for the usual scale, for which records give sizes.
  const SkinData& UsualSkin() const { return skin_->usual ? skin_->usual->data : skin_->data; }
  std::int32_t Scaled(std::int32_t length) const { return ScaledLength(length, place_.Dpi()); }
  /// The smallest size that the skin and the screens allow; the other is for the usual scale.
  Size SmallestSize() const { return SmallestSize(skin_->data); }
  Size SmallestUsualSize() const { return SmallestSize(UsualSkin()); }
  /// The size brought up to `minimum`, which is logged when that changes it.
  Size LogSafeSize(Size size, Size minimum) const;
  std::int32_t RolledHeight() const { return RolledHeight(skin_->data); }
  std::int32_t UsualRolledHeight() const { return RolledHeight(UsualSkin()); }
  /// From here on the window follows the mouse, whose button is held.
  void BeginMove(Point mouse);
  /// The mouse has put the window elsewhere.
  bool WasPlaced(Drag ended) const;

  /// A point of the screen in client pixels.
  Point ToClient(Point screen) const;
  /// The colour that is drawn for one that the user has chosen.
  Colour DrawnColour(Colour chosen) const;
  /// A drawn colour as the paper shows it.
  Colour PaperOf(Colour colour) const;
  /// As the keyboard is now: the state that a thread is told of lags behind while another window has the
  /// focus.
  static bool IsHeld(int key) { return GetAsyncKeyState(key) < 0; }

  const NoteContext& context_;
  std::shared_ptr<const LoadedSkin> skin_;
  SkinView view_;
  NotePlace place_{Rect{}};
  bool hasFocus_ = false;
  bool mouseOver_ = false;
  Drag drag_ = Drag::kIdle;
  FramePart dragPart_ = FramePart::kContent;
  Point dragStart_;                 // mouse position on the screen at the press
  Rect dragBounds_;                 // the window at the press
  std::optional<Point> menuAsked_;  // where on the screen the mouse, if it was that, has asked for a menu

 private:
  struct MouseState {
    std::size_t hotButton = kNoElement;
    std::size_t pressedButton = kNoElement;
    bool tracked = false;
    bool fading = false;  // its timer runs
    HoverFade hover;
  };

  Size SmallestSize(const SkinData& skin) const;
  std::vector<LPARAM> PartsForKeys(bool atFoot) const;
  bool IsAtFoot() const;
  void FocusPart(LPARAM command);
  void DoButton(ActionCode action, PartUse use, Point at);
  void LeaveParts();
  Rect FocusedPlace() const;
  std::int32_t RolledHeight(const SkinData& skin) const;
  void FollowScale(std::int32_t dpi);
  ShadowCaster Caster(Size window) const;
  bool HasShadow() const { return context_.options.shadows && !context_.theme.Now().contrast; }
  LRESULT OnPaint();
  void OnButtonDown(Point at);
  void OnMouseMove(Point at);
  void OnMouseLeave();
  void ForgetMouse();
  void OnButtonUp(Point at);
  void DragTo(Point offset);
  void EndDrag();

  NoteShadow shadow_;
  Accessibility access_;
  LPARAM focusedPart_ = 0;  // that the keyboard is at, by its command; 0: none
  MouseState mouse_;
  std::vector<Rect> snapWindows_;  // at the press
  bool hasRegion_ = false;
  bool followsScale_ = false;
  bool dropping_ = false;  // the button was let go with Shift held
};

}  // namespace jotlets

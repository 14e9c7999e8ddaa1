// A stack on the desktop: a small window, drawn by the skin for stacks, with the list of its notes. What
// becomes of the notes is its owner's affair.
#pragma once

#include <windows.h>

#include <utility>

#include "data/stack_record.h"
#include "note/frame_layout.h"
#include "note/note_place.h"
#include "note/win/note_shadow.h"
#include "schedule/win/stack_owner.h"
#include "skin/skin_layout.h"
#include "ui/window.h"

namespace jotlets {

inline constexpr wchar_t kStackClass[] = L"BraskJotletStack";
inline constexpr wchar_t kStackShadowClass[] = L"BraskJotletStackShadow";

class BStackDlg final : public Window {
 public:
  /// `owner` outlives the stack.
  BStackDlg(StackOwner& owner, StackRecord record) : owner_(owner), record_(std::move(record)) {}

  /// Creates the window, not yet shown; false when the system could not.
  bool CreateWindowFor();
  /// Takes the window away, for good.
  void DestroyWindowNow() {
    shadow_.Close();
    Destroy();
  }
  void Show();
  void Hide();
  void BringForward();

  const StackRecord& Record() const { return record_; }
  std::int32_t Number() const { return record_.number; }
  const std::vector<StackMember>& Members() const { return members_; }
  /// The notes that belong to the stack are now these.
  void SetMembers(std::vector<StackMember> members);

  void SetTitle(TextView title);
  /// Gives the stack a colour of its own, which it keeps.
  void SetColour(Colour colour);
  void SetKeepColour(bool keep);
  void SetOnTop(bool onTop);
  /// Whether its notes are spread out.
  void SetUnpacked(bool unpacked);
  bool IsRolled() const { return view_.rolled; }
  void SetRolled(bool rolled);
  /// A note that is being dragged would be dropped here.
  void SetDropTarget(bool target);

  void RefreshSkin();
  /// The monitors are (now) these; the stack is shown where it can be seen.
  void ShowOnScreens(const MonitorSetup& screens);
  void MoveTo(Point position);

  /// Carries out the command of an action code; false for one that is none of a stack. The stack may be gone
  /// when the call returns.
  bool DoAction(ActionCode action);

 private:
  enum class Drag { kIdle, kMoving, kSizing, kButton, kRow };

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnPaint();
  LRESULT OnSetCursor();
  void OnButtonDown(Point at);
  void OnDoubleClick(Point at);
  void OnMouseMove(Point at);
  void OnMouseLeave();
  void OnButtonUp(Point at);
  void OnWheel(int delta);
  bool OnKey(WPARAM key);
  void OnMenu(bool byMouse);
  void DragTo(Point offset);
  void DragOut();
  void EndDrag();
  void OnSize();
  void OnFocus(bool gained);

  StackList List() const;
  std::optional<Text> MemberAt(std::optional<std::size_t> row) const;
  void ScrollTo(std::int32_t position);
  void SelectRow(std::optional<std::size_t> row);
  FramePart PartAt(Point at) const;
  Size SmallestSize() const;
  std::int32_t RolledHeight() const;
  std::int32_t HeightForList() const;
  void Place(const Rect& bounds);
  void TakePlace();
  void Changed();
  void ApplySkin();
  void MakeFonts();
  void UpdateView();
  void Repaint() { InvalidateRect(Handle(), nullptr, FALSE); }
  void FollowWithShadow();

  StackOwner& owner_;
  StackRecord record_;
  std::vector<StackMember> members_;
  std::shared_ptr<const LoadedSkin> skin_;
  SkinView view_;
  NotePlace place_{Rect{}};
  NoteShadow shadow_{kStackShadowClass};
  UniqueFont font_;
  UniqueFont awayFont_;
  std::int32_t rowHeight_ = 1;
  std::int32_t scroll_ = 0;
  std::int32_t unrolledHeight_ = 0;  // 0: not known
  bool hasFocus_ = false;
  bool mouseOver_ = false;
  bool trackingMouse_ = false;
  bool dropTarget_ = false;
  std::optional<std::size_t> hotRow_;       // under the mouse
  std::optional<std::size_t> selectedRow_;  // by the keyboard
  std::size_t hotButton_ = kNoElement;
  Drag drag_ = Drag::kIdle;
  FramePart dragPart_ = FramePart::kContent;
  std::size_t pressedButton_ = kNoElement;
  std::optional<Text> pressedMember_;
  Point dragStart_;
  Rect dragBounds_;
  std::vector<Rect> snapWindows_;
};

}  // namespace jotlets

// A stack on the desktop: a small window, drawn by the skin for stacks, with the list of its notes. What
// becomes of the notes is its owner's affair.
#pragma once

#include <windows.h>

#include <utility>

#include "data/stack_record.h"
#include "note/win/skinned_window.h"
#include "schedule/stack_rules.h"
#include "schedule/win/stack_owner.h"

namespace jotlets {

inline constexpr wchar_t kStackClass[] = L"BraskJotletStack";
inline constexpr wchar_t kStackShadowClass[] = L"BraskJotletStackShadow";

class BStackDlg final : public SkinnedWindow {
 public:
  /// `owner` and `context` outlive the stack.
  BStackDlg(StackOwner& owner, const NoteContext& context, StackRecord record)
      : SkinnedWindow(context, kStackShadowClass), owner_(owner), record_(std::move(record)) {}

  /// Creates the window, not yet shown; false when the system could not.
  bool CreateWindowFor();
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
  /// The options have changed.
  void FollowOptions() { FollowWithShadow(); }
  /// The monitors are (now) these; the stack is shown where it can be seen.
  void ShowOnScreens(const MonitorSetup& screens) { PlaceOnScreens(screens); }
  void MoveTo(Point position);
  /// Centres a stack on the screen whose place is off it; whether it was.
  bool Rescue();

  /// Carries out the command of an action code; false for one that is none of a stack. The stack may be gone
  /// when the call returns.
  bool DoAction(ActionCode action);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Draw(HDC dc, const Rect& part) override;
  FramePart PartAt(Point at) const override;
  LPCWSTR CursorAt(Point at) const override;
  bool DoSkinAction(ActionCode action, Point) override { return DoAction(action); }
  std::vector<Rect> WindowsToSnapTo() const override { return owner_.WindowsToSnapTo(*this); }
  void BeginPress() override;
  Press PressAt(Point at, bool ctrl) override;
  bool RollsAt(Point at) const override;
  void OnHover(Point at) override;
  void OnMouseGone() override;
  void DragContent(Point mouse) override;
  void DropContent(Point at) override;
  void OnDragEnded(Drag ended, bool shift) override;
  void OnSize() override;
  void OnFocus(bool gained) override;
  void SyncPlace() override;
  void OnScaleChanged() override { RefreshSkin(); }
  std::vector<Colour> SheetsBelow() const override;
  void FillView() override;
  std::vector<SkinPart> SkinParts() const override;
  std::vector<AccessiblePart> Parts() const override;
  void UsePart(AccessibleWindow::Use use, LPARAM command) override;
  void FocusContent() override { SetFocus(Handle()); }
  ScrollState Scrolled() const override;

  void OnWheel(int delta);
  bool OnKey(WPARAM key);
  void OnMenu(bool byMouse);

  StackList List() const;
  std::optional<Text> MemberAt(std::optional<std::size_t> row) const;
  void ScrollTo(std::int32_t position);
  void SelectRow(std::optional<std::size_t> row);
  void TellRow();
  std::int32_t HeightForList() const;
  void Changed();
  void ApplySkin();
  void MakeFonts();

  StackOwner& owner_;
  StackRecord record_;
  std::vector<StackMember> members_;
  UniqueFont font_;
  UniqueFont awayFont_;
  std::int32_t rowHeight_ = 1;
  std::int32_t scroll_ = 0;
  std::int32_t unrolledHeight_ = 0;  // at the usual scale; 0: not known
  bool dropTarget_ = false;
  std::optional<std::size_t> hotRow_;       // under the mouse
  std::optional<std::size_t> selectedRow_;  // by the keyboard
  std::optional<Text> pressedMember_;
};

}  // namespace jotlets

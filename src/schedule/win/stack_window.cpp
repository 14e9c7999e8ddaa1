#include "schedule/win/stack_window.h"

#include <algorithm>

#include "base/win/wide.h"
#include "editor/text_style.h"
#include "res/resource.h"
#include "schedule/win/member_list.h"
#include "ui/screen.h"

namespace jotlets {
namespace {

constexpr std::int32_t kRowPadding = 8;

// What the skin's placeholders say of a stack.
class StackWords final : public SkinWords {
 public:
  /// `toggle` is what the button that spreads the stack out or gathers it in does now.
  StackWords(const StackRecord& stack, std::size_t count, const Text& toggle)
      : stack_(stack), count_(count), toggle_(toggle) {}
  std::optional<Text> Find(TextView placeholder) const override {
    if (placeholder == u"STACKNAME" || placeholder == u"TITLE") return OneLine(stack_.title);
    if (placeholder == u"SOURCE" || placeholder == u"COUNT")
      return IntText(static_cast<std::int64_t>(count_));
    if (placeholder == u"SPREAD") return toggle_;
    return std::nullopt;
  }

 private:
  const StackRecord& stack_;
  std::size_t count_;
  const Text& toggle_;
};

}  // namespace

bool BStackDlg::CreateWindowFor() {
  const std::int32_t dpi = DpiAt({record_.x, record_.y});
  skin_ = context_.skins.OfStacks(dpi);
  const Size minimum = SmallestUsualSize();
  const bool rolled = IsStackRolled(record_.height, UsualRolledHeight());
  Size size = SafeSize({record_.width, record_.height}, minimum);
  if (rolled) size.height = UsualRolledHeight();
  place_ = NotePlace(RectAt({record_.x, record_.y}, size), dpi);
  WindowStyle style{WS_POPUP, WS_EX_TOOLWINDOW | WS_EX_LAYERED};
  if (record_.onTop) style.extended |= WS_EX_TOPMOST;
  PrepareShadow();
  if (!Create(kStackClass, Wide(record_.title), place_.Shown(), style)) return false;
  view_.rolled = rolled;
  if (Dpi() != dpi && place_.ScaleChanged(Dpi())) skin_ = context_.skins.OfStacks(Dpi());
  ApplySkin();
  ShowOnScreens(context_.screens);
  return true;
}

void BStackDlg::Show() { ShowWindow(Handle(), SW_SHOWNOACTIVATE); }
void BStackDlg::Hide() { ShowWindow(Handle(), SW_HIDE); }

void BStackDlg::BringForward() { Raise(record_.onTop); }

void BStackDlg::SetMembers(std::vector<StackMember> members) {
  if (members == members_) return;
  members_ = std::move(members);
  if (selectedRow_ && *selectedRow_ >= members_.size()) selectedRow_.reset();
  hotRow_.reset();
  scroll_ = List().SafeScroll(scroll_);
  UpdateView();
  TellChanges();
  Repaint();
  FollowWithShadow();
}

// The first one gives the stack its colour.
std::vector<Colour> BStackDlg::SheetsBelow() const {
  std::vector<Colour> sheets;
  const std::size_t most = view_.rolled ? 0 : static_cast<std::size_t>(skin_->data.sheets);
  for (std::size_t at = 1; at < members_.size() && sheets.size() < most; ++at)
    sheets.push_back(DrawnColour(members_[at].colour));
  return sheets;
}

void BStackDlg::SetTitle(TextView title) {
  record_.title = title;
  SetWindowTextW(Handle(), Wide(record_.title));
  Changed();
}

void BStackDlg::SetColour(Colour colour) {
  record_.colour = ColourNumber(colour.r, colour.g, colour.b);
  record_.keepColour = true;
  Changed();
}

void BStackDlg::SetKeepColour(bool keep) {
  // What is kept is what is seen.
  if (keep) return SetColour(StackColour(record_, members_));
  record_.keepColour = false;
  Changed();
}

void BStackDlg::SetOnTop(bool onTop) {
  record_.onTop = onTop;
  KeepOnTop(onTop);
  Changed();
}

void BStackDlg::SetUnpacked(bool unpacked) {
  if (record_.unp == unpacked) return;
  record_.unp = unpacked;
  Changed();
}

void BStackDlg::SetRolled(bool rolled) {
  if (rolled == view_.rolled || RolledHeight() <= 0) return;
  SyncPlace();
  Rect bounds = place_.Shown();
  if (rolled) unrolledHeight_ = place_.Chosen().Height();
  const std::int32_t open =
      std::max(unrolledHeight_ > 0 ? Scaled(unrolledHeight_) : HeightForList(), SmallestSize().height);
  view_.rolled = rolled;
  bounds.bottom = Saturated(std::int64_t{bounds.top} + (rolled ? RolledHeight() : open));
  Place(bounds);
  OnSize();
  Changed();
}

void BStackDlg::SetDropTarget(bool target) {
  if (dropTarget_ == target) return;
  dropTarget_ = target;
  UpdateView();
  Repaint();
}

void BStackDlg::RefreshSkin() {
  skin_ = context_.skins.OfStacks(place_.Dpi());
  ApplySkin();
}

void BStackDlg::MoveTo(Point position) {
  const Rect bounds = Bounds();
  Place(RectAt(position, {bounds.Width(), bounds.Height()}));
  Changed();
}

bool BStackDlg::Rescue() {
  // No window is as large as a record may say: another size alone is no choice of the user's.
  if (Bounds().TopLeft() != place_.Shown().TopLeft()) SyncPlace();
  const Rect shown = place_.Shown();
  const Rect chosen = RectAt(place_.Chosen().TopLeft(), {shown.Width(), shown.Height()});
  const auto to = RescuedStackPosition(chosen, context_.screens.virtualScreen);
  if (!to) return false;
  const Rect bounds = RectAt(*to, {shown.Width(), shown.Height()});
  Place(bounds);
  place_.Choose(bounds);
  record_.x = to->x;
  record_.y = to->y;
  Changed();
  return true;
}

bool BStackDlg::DoAction(ActionCode action) {
  switch (action) {
    case kActionOnTop: SetOnTop(!record_.onTop); return true;
    case kActionRoll: SetRolled(!view_.rolled); return true;
    case kActionScrollUp: ScrollTo(scroll_ - rowHeight_); return true;
    case kActionScrollDown: ScrollTo(scroll_ + rowHeight_); return true;
    case kActionOpenJotletContext: OnMenu(false); return true;
    default: return owner_.OnStackAction(*this, action);
  }
}

LRESULT BStackDlg::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_MOUSEWHEEL: OnWheel(static_cast<std::int16_t>(HIWORD(wParam))); return 0;
    case WM_KEYDOWN:
      if (OnPartKey(wParam) || OnKey(wParam)) return 0;
      break;
    case WM_RBUTTONUP: OnMenu(true); return 0;
    case WM_CONTEXTMENU: OnMenu(false); return 0;
    case WM_CLOSE: DoAction(kActionClose); return 0;
    default: break;
  }
  return SkinnedWindow::OnMessage(message, wParam, lParam);
}

void BStackDlg::Draw(HDC dc, const Rect& part) {
  const Text toggle = context_.textOf(WouldGather(members_) ? IDS_STACK_GATHER_IN : IDS_STACK_SPREAD_OUT);
  const StackWords words(record_, members_.size(), toggle);
  MemberListLook look;
  look.font = font_.get();
  look.paper = PaperOf(view_.colour);
  look.awayFont = awayFont_.get();
  look.hot = hotRow_;
  look.selected = hasFocus_ ? selectedRow_ : std::nullopt;
  look.dropTarget = dropTarget_;
  look.dpi = place_.Dpi();
  look.contrast = view_.contrast;
  look.bars = skin_->data.rowHeight > 0;
  const Text hint = members_.empty() ? owner_.EmptyHint() : Text();
  const MemberListInlay inlay(List(), members_, look, hint);
  context_.skins.Renderer().Paint(dc, part, *skin_, view_, words, &inlay);
}

void BStackDlg::OnSize() {
  scroll_ = List().SafeScroll(scroll_);
  UpdateView();
  ApplyRegion();
  Repaint();
}

void BStackDlg::OnFocus(bool gained) {
  hasFocus_ = gained;
  if (!gained) ForgetPart();
  UpdateView();
  Repaint();
}

// As high as the whole list needs, as far as the screen has room.
std::int32_t BStackDlg::HeightForList() const {
  const std::int64_t wanted = std::int64_t{skin_->data.top} + skin_->data.bottom + List().Height();
  return Saturated(std::min<std::int64_t>(wanted, context_.screens.virtualScreen.Height() / 2));
}

StackList BStackDlg::List() const {
  return {TextArea(skin_->data, view_), rowHeight_, members_.size(), scroll_};
}

std::optional<Text> BStackDlg::MemberAt(std::optional<std::size_t> row) const {
  if (!row || *row >= members_.size()) return std::nullopt;
  return members_[*row].id;
}

// Where the window is counts as the user's choice, unless it is where missing monitors have put it. The size
// in the record stays as it was written until it is changed, also when the skin asks for more.
void BStackDlg::SyncPlace() {
  const Rect bounds = Bounds();
  const Rect before = place_.Chosen();
  if (bounds == place_.Shown()) return;
  place_.Choose(bounds);
  record_.x = bounds.left;
  record_.y = bounds.top;
  const Rect& now = place_.Chosen();
  if (now.Width() != before.Width()) record_.width = now.Width();
  if (now.Height() != before.Height()) record_.height = now.Height();
}

void BStackDlg::Changed() {
  SyncPlace();
  UpdateView();
  Repaint();
  owner_.OnStackChanged(*this);
}

void BStackDlg::ApplySkin() {
  ApplyAlpha(255);
  MakeFonts();
  UpdateView();
  OnSize();
}

// The list is set in the style that the skin names for texts.
void BStackDlg::MakeFonts() {
  const TextStyle style = ParseTextStyle(skin_->data.defaultStyle);
  constexpr std::int32_t kUsualHeight = 12;
  const std::int32_t height = style.height == 0  ? kUsualHeight
                              : style.height < 0 ? -style.height
                                                 : style.height;
  LOGFONTW logical{};
  logical.lfHeight = -Scaled(std::min(height, 4 * kUsualHeight));
  logical.lfWeight = style.weight;
  logical.lfCharSet = DEFAULT_CHARSET;
  logical.lfQuality = CLEARTYPE_QUALITY;
  const Text face = style.IsSet() ? style.faceName : Text(u"Segoe UI");
  wcsncpy(logical.lfFaceName, Wide(face), LF_FACESIZE - 1);
  font_.reset(CreateFontIndirectW(&logical));
  logical.lfItalic = TRUE;
  awayFont_.reset(CreateFontIndirectW(&logical));
  rowHeight_ = std::max<std::int32_t>(-logical.lfHeight + Scaled(kRowPadding), skin_->data.rowHeight);
}

void BStackDlg::FillView() {
  view_.colour = DrawnColour(StackColour(record_, members_));
  view_.focus = hasFocus_ || dropTarget_;
  const auto any = [this](auto is) { return std::any_of(members_.begin(), members_.end(), is); };
  view_.states.Set(SkinState::kOnTop, record_.onTop);
  view_.states.Set(SkinState::kTitle, !record_.title.empty());
  view_.states.Set(SkinState::kOwnTitle, !record_.title.empty());
  view_.states.Set(SkinState::kAlarm, any([](const StackMember& m) { return m.alarm; }));
  view_.states.Set(SkinState::kInStack,
                   any([](const StackMember& m) { return m.state == MemberState::kShown; }));
}

ScrollState BStackDlg::Scrolled() const {
  const StackList list = List();
  return {list.scroll, list.area.Height(), list.Height()};
}

}  // namespace jotlets

#include "manage/win/manage_preview.h"

#include <algorithm>
#include <utility>

#include "base/win/wide.h"
#include "looks/ink.h"
#include "note/papers.h"
#include "ui/areas.h"
#include "ui/handle.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr int kBarHeight = 32;  // pixels at 96 dots per inch, as below
constexpr int kInset = 10;
constexpr std::int32_t kBarShade = 6;  // percent
constexpr UINT kSaveDelay = 700;       // milliseconds without a change
constexpr UINT kRetryDelay = 3000;
// Bytes of a text; more would hold up who goes through the list.
constexpr std::size_t kLargestShown = 256 * 1024;
constexpr Size kLargestPicture{1000, 1000};

Colour BarOf(Colour paper) { return Shaded(paper, kBarShade); }

}  // namespace

void ManagePreview::SetUp(HWND title) {
  title_ = title;
  place_ = {};
  id_.clear();
  given_.clear();
  shownTitle_.clear();
  font_ = BolderFont(title);
  SendMessageW(title_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
  text_.CreateIn(GetParent(title), EditLook());
  text_.Show(false);
  text_.SetUnsavedChanges(false);
  const HWND text = text_.ContentWindow();
  if (text == nullptr) return;
  // Its name for who cannot see it is the title before it.
  SetWindowLongPtrW(text, GWL_STYLE, GetWindowLongPtrW(text, GWL_STYLE) | WS_TABSTOP);
  SetWindowPos(text, title, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

Colour ManagePreview::Paper() const {
  const Theme& look = resources_.Look();
  if (look.Now().contrast) return look.Colours().field;
  return look.IsDark() ? DarkPaper(colour_) : colour_;
}

BEdit::Look ManagePreview::EditLook() const {
  BEdit::Look look{Paper()};
  if (resources_.Look().Now().contrast) look.ink = resources_.Look().Colours().text;
  return look;
}

void ManagePreview::Place(const Rect& place) {
  place_ = place;
  ShowWindow(title_, IsShown() ? SW_SHOWNA : SW_HIDE);
  text_.Show(IsShown() && pictured_.empty());
  if (!IsPlaced()) return;
  const int bar = Scaled(kBarHeight);
  SetWindowPos(title_, nullptr, place.left, place.top, place.Width(),
               pictured_.empty() ? bar : place.Height(), SWP_NOZORDER | SWP_NOACTIVATE);
  AskPicture();
  text_.SetBounds({place.left, place.top + bar, place.right, std::max(place.bottom, place.top + bar)});
  Inset();
}

int ManagePreview::Scaled(int length) const {
  return MulDiv(length, static_cast<int>(GetDpiForWindow(title_)), USER_DEFAULT_SCREEN_DPI);
}

// Keeps the text off the sides.
void ManagePreview::Inset() const {
  const int inset = Scaled(kInset);
  RECT inside{};
  GetClientRect(TextWindow(), &inside);
  InflateRect(&inside, -inset, -inset / 2);
  SendMessageW(TextWindow(), EM_SETRECT, 0, reinterpret_cast<LPARAM>(&inside));
}

void ManagePreview::Show(const ManageRow& row) {
  if (row.id != id_ && HasKeyboard()) return;
  if (row.id != id_) Save(true);
  if (row.type == ManageRow::Type::kPicture) return ShowPicture(row);
  const bool isText = row.type == ManageRow::Type::kText && text_.ContentWindow() != nullptr;
  std::optional<PreviewedText> shown = isText ? source_.TextOf(row.id) : std::nullopt;
  if (!shown) return Hide();
  const bool other = row.id != id_;
  const bool repaper = other || colour_ != row.colour;
  colour_ = row.colour;
  if (repaper) FollowLook();
  if (other || shownTitle_ != row.title) ShowTitle(row.title);
  id_ = row.id;
  pictured_.clear();
  // What is being typed goes before what somebody else has made of it meanwhile.
  if (other || !text_.HasUnsavedChanges()) Load(*std::move(shown), other);
  if (other) Place(Rect(place_));
}

void ManagePreview::ShowTitle(const Text& title) {
  shownTitle_ = title;
  SetWindowTextW(title_, Wide(title));
  InvalidateRect(title_, nullptr, FALSE);
}

void ManagePreview::ShowPicture(const ManageRow& row) {
  if (HasKeyboard()) return;
  const bool other = row.id != pictured_;
  if (!other && row.modified == picturedAt_ && row.title == shownTitle_ && row.colour == colour_) return;
  End();
  colour_ = row.colour;
  pictured_ = row.id;
  picturedAt_ = row.modified;
  ShowTitle(row.title);
  if (other) picture_ = {};
  asked_ = false;
  Place(Rect(place_));
}

void ManagePreview::AskPicture() {
  if (pictured_.empty() || std::exchange(asked_, true)) return;
  source_.AskPicture(pictured_, kLargestPicture, [this, id = pictured_](const Picture& picture) {
    if (id != pictured_ || !picture_.Load(picture)) return;
    InvalidateRect(title_, nullptr, FALSE);
  });
}

void ManagePreview::Load(PreviewedText shown, bool other) {
  if (other || shown.content != given_) {
    // What is shown in part must not be saved in the place of all.
    const bool tooLarge = shown.content.size() > kLargestShown;
    whole_ = !tooLarge && text_.Load(shown.content).empty();
    if (tooLarge) text_.LoadWords(shown.content, resources_.String(IDS_TEXT_LONG));
    given_ = std::move(shown.content);
  }
  text_.SetReadOnly(shown.fixed || !whole_);
  text_.SetUnsavedChanges(false);
  failed_ = false;
}

// Somebody may have typed into the note itself until just now.
void ManagePreview::ReadAgain() {
  if (id_.empty() || text_.HasUnsavedChanges()) return;
  if (std::optional<PreviewedText> shown = source_.TextOf(id_)) Load(*std::move(shown), false);
}

void ManagePreview::Save(bool last) {
  if (id_.empty() || !text_.HasUnsavedChanges()) return;
  const HWND window = GetParent(title_);
  KillTimer(window, kSaveTimer);
  const ContentBytes made = text_.BytesToSave();
  if (made.bytes && source_.ChangeText(id_, *made.bytes)) {
    text_.SetUnsavedChanges(false);
    failed_ = false;
    // An editor of its own may tell it in other words.
    if (std::optional<PreviewedText> shown = source_.TextOf(id_)) given_ = std::move(shown->content);
    return;
  }
  if (last || !failed_) {
    text_.PutOnClipboard(window, true, {});
    PostMessageW(window, kUnsavedMessage, 0, 0);
  }
  failed_ = true;
  if (last) text_.SetUnsavedChanges(false);
  if (!last) SetTimer(window, kSaveTimer, kRetryDelay, nullptr);
}

void ManagePreview::Hide() {
  if (HasKeyboard()) return;
  End();
  Place(Rect(place_));
}

void ManagePreview::End() {
  Save(true);
  id_.clear();
  pictured_.clear();
}

void ManagePreview::FollowLook() {
  text_.SetLook(EditLook());
  InvalidateRect(title_, nullptr, TRUE);
}

bool ManagePreview::OnCommand(UINT control, UINT notification) {
  if (control != BEdit::kControlId) return false;
  if (notification == EN_CHANGE) {
    text_.SetUnsavedChanges(true);
    SetTimer(GetParent(title_), kSaveTimer, kSaveDelay, nullptr);
  }
  if (notification == EN_SETFOCUS) ReadAgain();
  if (notification == EN_KILLFOCUS) Save();
  return true;
}

bool ManagePreview::ServeKey(WPARAM key) {
  BEdit* const edit = text_.Editor();
  return edit != nullptr && source_.ServeKey(*edit, key);
}

void ManagePreview::ShowMenu(POINT at) {
  BEdit* const edit = text_.Editor();
  if (edit == nullptr) return;
  if (at.x == -1 && at.y == -1) {  // by the keyboard
    const CHARRANGE selection = edit->Selection();
    POINTL caret{};
    SendMessageW(TextWindow(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&caret), selection.cpMax);
    at = {caret.x, caret.y};
    ClientToScreen(TextWindow(), &at);
  }
  source_.ShowMenu(*edit, {at.x, at.y});
}

void ManagePreview::FollowLink() {
  const BEdit* const edit = text_.Editor();
  if (edit != nullptr) source_.OpenLink(GetParent(title_), Text(id_), Text(edit->FollowedLink()));
}

void ManagePreview::DrawTitle(const DRAWITEMSTRUCT& item) const {
  const bool contrast = resources_.Look().Now().contrast.has_value();
  const Colour bar = contrast ? Paper() : BarOf(Paper());
  RECT area = item.rcItem;
  area.bottom = std::min<LONG>(area.bottom, Scaled(kBarHeight));
  FillArea(item.hDC, area, bar);
  if (!pictured_.empty()) {
    RECT below = item.rcItem;
    below.top = area.bottom;
    FillArea(item.hDC, below, Paper());
    const Rect room = FromRECT(below);
    const Rect shown = PicturePlace(picture_.PixelSize(), room, kUsualDpi);
    const Point at{room.left + (room.Width() - shown.Width()) / 2, room.top};
    if (picture_.IsLoaded()) picture_.Draw(item.hDC, RectAt(at, {shown.Width(), shown.Height()}), room);
  }
  InflateRect(&area, -Scaled(kInset), 0);
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, ToCOLORREF(contrast ? resources_.Look().Colours().text : TitleInk(bar)));
  const Selected font(item.hDC, font_.get());
  DrawTextW(item.hDC, Wide(shownTitle_), -1, &area,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace jotlets

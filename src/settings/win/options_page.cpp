#include "settings/win/options_page.h"

#include <commctrl.h>

#include <algorithm>

#include "base/win/wide.h"
#include "note/papers.h"
#include "res/resource.h"
#include "ui/areas.h"
#include "ui/dialog_look.h"
#include "ui/system_choosers.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kMargin = 24;
constexpr int kHeadTop = 16;
constexpr int kHeadHeight = 26;
constexpr int kAboutHeight = 22;
constexpr int kHeadingGap = 14;
constexpr int kHeadingHeight = 24;
constexpr int kSmallestNames = 110;
constexpr int kNameGap = 12;
constexpr int kWheelStep = 60;
constexpr int kHeadPoints10 = 135;  // tenths of a point

UINT FirstIdOf(std::size_t index) { return IDC_SETTING + static_cast<UINT>(index) * SettingControls::kParts; }

}  // namespace

bool BOpTab::OpenIn(HWND dialog) { return Open(context_.resources, IDD_OPTIONS_PAGE, dialog); }

void BOpTab::Show(bool shown) { ShowWindow(Handle(), shown ? SW_SHOW : SW_HIDE); }

void BOpTab::SetBounds(const Rect& area) {
  SetWindowPos(Handle(), nullptr, area.left, area.top, area.Width(), area.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
  MakeFonts();
  const bool isNew = laidOut_.dpi == 0;
  Layout();
  if (isNew) Fill();
}

void BOpTab::OnInit() {
  head_ = {IDS_SETTINGS_PAGE + static_cast<UINT>(page_)};
  about_ = {IDS_SETTINGS_PAGE_ABOUT + static_cast<UINT>(page_)};
  for (const SettingRow& row : SettingRows()) {
    if (PageOf(row.group) != page_) continue;
    if (settings_.empty() || settings_.back().Row().group != row.group)
      headings_.push_back({IDS_SETTING_GROUP + static_cast<UINT>(row.group)});
    settings_.emplace_back(row, Handle(), FirstIdOf(settings_.size()), context_.resources, context_.choices);
  }
  ShowStates();
}

void BOpTab::MakeFonts() {
  NONCLIENTMETRICSW metrics{.cbSize = sizeof metrics};
  const UINT dpi = GetDpiForWindow(Handle());
  if (dpi == dpi_) return;
  dpi_ = dpi;
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi);
  LOGFONTW font = metrics.lfMessageFont;
  font_.reset(CreateFontIndirectW(&font));
  font.lfWeight = FW_SEMIBOLD;
  semibold_.reset(CreateFontIndirectW(&font));
  font.lfHeight = -MulDiv(kHeadPoints10, static_cast<int>(dpi), 720);
  large_.reset(CreateFontIndirectW(&font));
  const auto set = [](const PageText& text, const UniqueFont& with) {
    if (text.window != nullptr)
      SendMessageW(text.window, WM_SETFONT, reinterpret_cast<WPARAM>(with.get()), FALSE);
  };
  set(head_, large_);
  set(about_, font_);
  for (const PageText& heading : headings_) set(heading, semibold_);
  for (SettingControls& setting : settings_) setting.SetFont(font_.get());
}

void BOpTab::Put(PageText& text, const Rect& area, const UniqueFont& font) const {
  if (text.window != nullptr) {
    SetWindowPos(text.window, nullptr, area.left, area.top, area.Width(), area.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
    return;
  }
  text.window =
      CreateWindowExW(0, L"STATIC", Wide(context_.resources.String(text.text)),
                      WS_CHILD | WS_VISIBLE | SS_LEFT | SS_NOPREFIX, area.left, area.top, area.Width(),
                      area.Height(), Handle(), nullptr, GetModuleHandleW(nullptr), nullptr);
  SendMessageW(text.window, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), FALSE);
}

void BOpTab::Layout() {
  RECT client{};
  GetClientRect(Handle(), &client);
  const LaidOut now{static_cast<int>(client.right), static_cast<int>(client.bottom), dpi_};
  if (dpi_ == 0 || now == laidOut_) return;
  laidOut_ = now;
  const HDC dc = GetDC(Handle());
  {
    const Selected font(dc, font_.get());
    const PageScale scale{dc, static_cast<int>(dpi_), LineHeight(font_.get()), FieldHeight(font_.get())};
    PlaceAll(std::max<int>(client.right - 2 * scale.Scaled(kMargin), 0), scale);
  }
  ReleaseDC(Handle(), dc);
  const SCROLLINFO info{.cbSize = sizeof info,
                        .fMask = SIF_PAGE | SIF_POS | SIF_RANGE,
                        .nMax = std::max(height_ - 1, 0),
                        .nPage = static_cast<UINT>(client.bottom),
                        .nPos = scrolled_};
  SetScrollInfo(Handle(), SB_VERT, &info, TRUE);
  ScrollTo(scrolled_);
  // Some controls are there from now on.
  DressDialog(Handle(), Look());
}

void BOpTab::LayoutAnew() { laidOut_ = {}, Layout(); }

void BOpTab::PlaceAll(int width, const PageScale& scale) {
  const int margin = scale.Scaled(kMargin);
  int y = scale.Scaled(kHeadTop) - scrolled_;
  const auto place = [&](PageText& text, int height, const UniqueFont& font) {
    Put(text, {margin, y, margin + width, y + scale.Scaled(height)}, font);
    y += scale.Scaled(height);
  };
  place(head_, kHeadHeight, large_);
  place(about_, kAboutHeight, font_);
  int names = scale.Scaled(kSmallestNames);
  for (const SettingControls& setting : settings_) names = std::max(names, setting.LabelWidth(scale));
  auto heading = headings_.begin();
  for (auto first = settings_.begin(); first != settings_.end();) {
    if (first == settings_.begin() || (first - 1)->Row().group != first->Row().group) {
      y += scale.Scaled(kHeadingGap);
      place(*heading++, kHeadingHeight, semibold_);
    }
    const auto end = std::find_if(first + 1, settings_.end(),
                                  [](const SettingControls& setting) { return !setting.Row().continues; });
    y += PlaceLine(first, end, {margin + names + scale.Scaled(kNameGap), margin + width, y, 0}, scale);
    first = end;
  }
  height_ = y + scrolled_ + scale.Scaled(kHeadTop);
}

// The height of the line with what is told below it. What has no room on it goes on in the next.
int BOpTab::PlaceLine(Line first, Line end, SettingLine line, const PageScale& scale) {
  for (Line setting = first; setting != end; ++setting)
    line.height = std::max(line.height, setting->Height(scale));
  const int top = line.top;
  int x = scale.Scaled(kMargin);
  for (Line setting = first; setting != end;) {
    x = setting->Place(x, line, scale);
    const Line next = setting + 1;
    if (next != end && x + next->Width(scale) <= line.right) {
      setting = next;
      continue;
    }
    int below = 0;
    for (; first != next; ++first)
      below += first->PlaceBelow({line.column, line.right, line.top, line.height + below}, scale);
    line.top += line.height + below;
    x = line.column;
    setting = next;
  }
  return line.top - top;
}

void BOpTab::ScrollTo(int position) {
  RECT client{};
  GetClientRect(Handle(), &client);
  const int last = std::max<int>(height_ - client.bottom, 0);
  position = std::clamp(position, 0, last);
  if (position == scrolled_) return;
  ScrollWindow(Handle(), 0, scrolled_ - position, nullptr, nullptr);
  scrolled_ = position;
  SetScrollPos(Handle(), SB_VERT, position, TRUE);
  RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void BOpTab::OnScroll(UINT code) {
  SCROLLINFO info{.cbSize = sizeof info, .fMask = SIF_ALL};
  GetScrollInfo(Handle(), SB_VERT, &info);
  const int page = static_cast<int>(info.nPage);
  switch (code) {
    case SB_LINEUP: return ScrollTo(scrolled_ - kWheelStep / 2);
    case SB_LINEDOWN: return ScrollTo(scrolled_ + kWheelStep / 2);
    case SB_PAGEUP: return ScrollTo(scrolled_ - page);
    case SB_PAGEDOWN: return ScrollTo(scrolled_ + page);
    case SB_TOP: return ScrollTo(0);
    case SB_BOTTOM: return ScrollTo(height_);
    case SB_THUMBTRACK: return ScrollTo(info.nTrackPos);
    default: break;
  }
}

void BOpTab::ShowControl(HWND control) {
  RECT bounds{};
  RECT client{};
  GetWindowRect(control, &bounds);
  GetClientRect(Handle(), &client);
  MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&bounds), 2);
  const int air = MulDiv(kMargin, static_cast<int>(GetDpiForWindow(Handle())), 96);
  if (bounds.top < 0) {
    ScrollTo(scrolled_ + bounds.top - 2 * air);
  } else if (bounds.bottom > client.bottom) {
    ScrollTo(scrolled_ + bounds.bottom - client.bottom + air);
  }
}

void BOpTab::ShowSetting(std::uint16_t id) {
  for (const SettingControls& setting : settings_) {
    if (setting.Row().id != id) continue;
    ShowControl(setting.Item(SettingControls::kMain));
    setting.Focus();
  }
}

Text BOpTab::Info(const SettingRow& row) const {
  return row.control == SettingControl::kInfo ? context_.owner.TellSetting(row.task) : Text();
}

void BOpTab::Fill() {
  if (laidOut_.dpi == 0) return;
  filling_ = true;
  bool anew = false;
  for (SettingControls& setting : settings_) {
    const Text told = setting.Notice();
    setting.ShowFault({});
    setting.Show(context_.draft, Info(setting.Row()));
    if (setting.Row().task == SettingTask::kStartWithWindows)
      SendMessageW(setting.Item(SettingControls::kMain), BM_SETCHECK,
                   context_.choices.startsWithWindows ? BST_CHECKED : BST_UNCHECKED, 0);
    anew = anew || setting.Notice() != told;
  }
  filling_ = false;
  if (anew) LayoutAnew();
}

void BOpTab::ShowStates() {
  for (SettingControls& setting : settings_) setting.ShowState(context_.draft);
}

SettingControls* BOpTab::Find(UINT control) {
  const auto found = std::ranges::find_if(
      settings_, [control](const SettingControls& setting) { return setting.Owns(control); });
  return found == settings_.end() ? nullptr : &*found;
}

bool BOpTab::OnCommand(UINT control, UINT notification) {
  SettingControls* setting = Find(control);
  if (setting == nullptr) return false;
  const SettingControls::Part part = setting->PartOf(control);
  const SettingControl kind = setting->Row().control;
  if (kind == SettingControl::kHotKey && (notification == EN_SETFOCUS || notification == EN_KILLFOCUS))
    context_.owner.HoldHotKeys(notification == EN_SETFOCUS);
  const bool isButton =
      part != SettingControls::kMain || kind == SettingControl::kButton || kind == SettingControl::kColour;
  if (isButton) {
    if (notification == BN_CLICKED) OnButton(*setting, part);
  } else if (kind == SettingControl::kPaper && notification == CBN_SELENDOK) {
    OnPaperChosen(*setting);
  } else if (!filling_ && (notification == EN_CHANGE || notification == CBN_SELCHANGE ||
                           (notification == BN_CLICKED && kind == SettingControl::kSwitch))) {
    OnChanged(*setting);
  }
  return true;
}

void BOpTab::OnChanged(SettingControls& setting) {
  const SettingRow& row = setting.Row();
  if (setting.IsTyped()) {
    const Text fault = FaultText(row, context_.draft.Enter(row, setting.Entered()));
    if (setting.ShowFault(fault.empty() ? Doubt(setting) : fault)) LayoutAnew();
  } else if (row.task == SettingTask::kStartWithWindows) {
    context_.choices.startsWithWindows = setting.Read().number == 1;
  } else {
    context_.draft.Set(row, setting.Read());
    if (row.control == SettingControl::kHotKey && setting.ShowFault(Doubt(setting))) LayoutAnew();
  }
  ShowStates();
  context_.watcher.OnSettingChanged();
}

void BOpTab::OnPaperChosen(SettingControls& setting) {
  const auto last = static_cast<LRESULT>(kPapers.size()) + 1;
  if (SendMessageW(setting.Item(SettingControls::kMain), CB_GETCURSEL, 0, 0) == last) {
    ChooseColour(setting);
  } else {
    OnChanged(setting);
  }
}

void BOpTab::ChooseColour(SettingControls& setting) {
  const std::int32_t present = std::max(context_.draft.Value(setting.Row()).number, 0);
  const std::optional<Colour> chosen = ChooseSystemColour(GetParent(Handle()), ColourOfNumber(present));
  if (chosen) context_.draft.Set(setting.Row(), {ColourNumber(chosen->r, chosen->g, chosen->b), {}});
  setting.Show(context_.draft, {});
  if (chosen) context_.watcher.OnSettingChanged();
}

void BOpTab::OnButton(SettingControls& setting, SettingControls::Part part) {
  if (part == SettingControls::kPlay) return context_.owner.PlaySettingSound(setting.Entered());
  if (part == SettingControls::kBrowse) return Browse(setting);
  if (setting.Row().control == SettingControl::kColour) return ChooseColour(setting);
  const HWND window = Handle();
  context_.owner.DoSettingTask(setting.Row().task, GetParent(Handle()));
  // It may have ended the program, or restarted it.
  if (IsWindow(window)) Fill();
}

void BOpTab::Browse(const SettingControls& setting) {
  const HWND dialog = GetParent(Handle());
  const Text chosen =
      setting.Row().control == SettingControl::kFolder
          ? ChooseFolder(dialog, context_.resources, IDS_SETTING_BACKUP_FOLDER, setting.Entered())
          : ChooseFileToOpen(dialog, context_.resources.String(IDS_SETTING_SOUNDS));
  if (!chosen.empty()) SetWindowTextW(setting.Item(SettingControls::kMain), Wide(chosen));
}

HBRUSH BOpTab::OnColours(HDC dc, HWND control) {
  const auto id = static_cast<UINT>(GetDlgCtrlID(control));
  const SettingControls* setting = control == nullptr ? nullptr : Find(id);
  // A field that cannot be changed now keeps the colours that say so.
  if (setting != nullptr && setting->IsTyped() && setting->PartOf(id) == SettingControls::kMain)
    return nullptr;
  const WindowColours& colours = Look().Colours();
  SetBkColor(dc, ToCOLORREF(colours.surface));
  SetDCBrushColor(dc, ToCOLORREF(colours.surface));
  SetTextColor(dc, ToCOLORREF(colours.text));
  if (setting != nullptr && setting->PartOf(id) == SettingControls::kNotice)
    SetTextColor(dc, ToCOLORREF(context_.draft.IsFixed(setting->Row()) ? colours.fixed : colours.fault));
  if (control != nullptr && control == about_.window) SetTextColor(dc, ToCOLORREF(colours.quiet));
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

std::optional<LRESULT> BOpTab::OnMessage(UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_SIZE: Layout(); return 0;
    case WM_VSCROLL: OnScroll(LOWORD(wParam)); return 0;
    case WM_MOUSEWHEEL:
      ScrollTo(scrolled_ - GET_WHEEL_DELTA_WPARAM(wParam) * kWheelStep / WHEEL_DELTA);
      return 0;
    default: return std::nullopt;
  }
}

void BOpTab::OnDrawItem(const DRAWITEMSTRUCT& item) {
  const bool isList = item.CtlType == ODT_COMBOBOX;
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  RECT area = item.rcItem;
  const WindowColours& colours = Look().Colours();
  FillArea(item.hDC, area, isList && selected ? colours.chosen : isList ? colours.field : colours.surface);
  std::int32_t number = static_cast<std::int32_t>(isList ? static_cast<LONG_PTR>(item.itemData)
                                                         : GetWindowLongPtrW(item.hwndItem, GWLP_USERDATA));
  RECT swatch = area;
  InflateRect(&swatch, -3, -3);
  if (isList) swatch.right = swatch.left + 2 * (swatch.bottom - swatch.top);
  if (number >= 0) {
    FillArea(item.hDC, swatch, ColourOfNumber(number));
    FrameArea(item.hDC, swatch, colours.edge);
  }
  if (isList && item.itemID != static_cast<UINT>(-1)) {
    wchar_t text[128]{};
    SendMessageW(item.hwndItem, CB_GETLBTEXT, item.itemID, reinterpret_cast<LPARAM>(text));
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, ToCOLORREF(selected ? colours.chosenText : colours.text));
    area.left = swatch.right + 6;
    DrawTextW(item.hDC, text, -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  }
  if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &item.rcItem);
}

}  // namespace jotlets

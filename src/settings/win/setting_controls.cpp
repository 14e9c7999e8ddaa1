#include "settings/win/setting_controls.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "base/win/wide.h"
#include "note/papers.h"
#include "res/resource.h"
#include "ui/tall_dialog.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kGap = 8;
constexpr int kControlHeight = 22;
constexpr int kLineHeight = 34;
constexpr int kSwitchHeight = 26;
constexpr int kBox = 24;  // of a switch, before its text
constexpr int kButtonPadding = 24;
constexpr int kSpinWidth = 18;
constexpr int kOpenList = 240;
constexpr int kNoticeHeight = 20;
constexpr int kNarrowest = 60;
constexpr UINT kQuietly = SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW;
constexpr int kPaperEntries = static_cast<int>(kPapers.size()) + 2;
constexpr LPARAM kOtherPaper = -2;

bool HasLabel(SettingControl control) {
  return control != SettingControl::kSwitch && control != SettingControl::kButton;
}

}  // namespace

SettingControls::SettingControls(const SettingRow& row, HWND page, UINT firstId, const Resources& resources,
                                 const SettingChoices& choices)
    : row_(&row), page_(page), firstId_(firstId), resources_(&resources), choices_(&choices) {
  const Text name = resources.String(IDS_SETTING + row.id);
  if (HasLabel(row.control)) texts_[kLabel] = name;
  if (row.control == SettingControl::kSwitch) texts_[kMain] = ReplaceAll(name, u"&", u"&&");
  if (row.control == SettingControl::kButton || row.control == SettingControl::kColour) texts_[kMain] = name;
  if (Has(kBrowse)) texts_[kBrowse] = resources.String(IDS_SETTING_CHOOSE);
  if (Has(kPlay)) texts_[kPlay] = resources.String(IDS_SETTING_PLAY);
  if (Has(kUnit)) texts_[kUnit] = resources.String(IDS_SETTING_UNIT + row.id);
}

bool SettingControls::Has(Part part) const {
  const bool isSound = row_->control == SettingControl::kSound;
  switch (part) {
    case kMain: return true;
    case kLabel: return HasLabel(row_->control);
    case kSpin: return row_->control == SettingControl::kNumber;
    case kBrowse: return isSound || row_->control == SettingControl::kFolder;
    case kPlay: return isSound;
    case kUnit: return row_->hasUnit;
    default: return !texts_[part].empty();
  }
}

void SettingControls::Put(Part part, const Rect& area) {
  if (items_[part] == nullptr) return Make(part, area);
  SetWindowPos(items_[part], nullptr, area.left, area.top, area.Width(), area.Height(), kQuietly);
}

void SettingControls::MakeWindow(Part part, const wchar_t* windowClass, DWORD style, const Rect& area,
                                 DWORD extended) {
  // The texts beside a control stay legible where it cannot be changed.
  const bool isText = part == kLabel || part == kUnit || part == kNotice;
  const DWORD disabled = enabled_ || isText ? 0 : WS_DISABLED;
  items_[part] = CreateWindowExW(
      extended, windowClass, Wide(texts_[part]), WS_CHILD | WS_VISIBLE | style | disabled, area.left,
      area.top, area.Width(), area.Height(), page_,
      reinterpret_cast<HMENU>(static_cast<UINT_PTR>(firstId_ + part)), GetModuleHandleW(nullptr), nullptr);
}

void SettingControls::Make(Part part, const Rect& area) {
  switch (part) {
    case kMain: MakeMain(area); break;
    case kSpin:
      MakeWindow(part, UPDOWN_CLASSW, UDS_ARROWKEYS | UDS_NOTHOUSANDS | UDS_SETBUDDYINT, area);
      SendMessageW(items_[part], UDM_SETBUDDY, reinterpret_cast<WPARAM>(items_[kMain]), 0);
      SendMessageW(items_[part], UDM_SETRANGE32, static_cast<WPARAM>(row_->minimum), row_->maximum);
      break;
    case kBrowse:
    case kPlay: MakeWindow(part, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, area); break;
    default: MakeWindow(part, L"STATIC", SS_LEFT | SS_NOPREFIX, area); break;
  }
  SendMessageW(items_[part], WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
}

void SettingControls::MakeMain(const Rect& area) {
  const auto make = [&](const wchar_t* windowClass, DWORD style, DWORD extended = 0) {
    MakeWindow(kMain, windowClass, style, area, extended);
  };
  switch (row_->control) {
    case SettingControl::kSwitch:
      make(L"BUTTON", BS_AUTOCHECKBOX | BS_MULTILINE | BS_VCENTER | WS_TABSTOP);
      break;
    case SettingControl::kButton: make(L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP); break;
    case SettingControl::kColour: make(L"BUTTON", BS_OWNERDRAW | WS_TABSTOP); break;
    case SettingControl::kInfo: make(L"STATIC", SS_LEFT | SS_NOPREFIX | SS_PATHELLIPSIS); break;
    case SettingControl::kChoice:
    case SettingControl::kSkin: make(L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP); break;
    case SettingControl::kPaper:
      make(L"COMBOBOX", CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP);
      break;
    case SettingControl::kHotKey:
      hotKey_ = std::make_unique<HotKeyField>();
      hotKey_->Create(page_, static_cast<int>(firstId_), area);
      hotKey_->SetWords([resources = resources_](TextView key) { return resources->Key(key); });
      hotKey_->SetCue(resources_->String(IDS_HOT_KEY_CUE));
      items_[kMain] = hotKey_->Handle();
      if (!enabled_) EnableWindow(items_[kMain], FALSE);
      break;
    default: make(L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE); break;
  }
  FillChoices();
  PassWheel(items_[kMain]);
}

void SettingControls::FillChoices() const {
  const auto add = [this](const Text& text, LPARAM value) {
    const LRESULT at = SendMessageW(items_[kMain], CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(text)));
    SendMessageW(items_[kMain], CB_SETITEMDATA, static_cast<WPARAM>(at), value);
  };
  if (row_->control == SettingControl::kChoice) {
    for (std::int32_t value = row_->minimum; value <= row_->maximum; ++value)
      add(resources_->String(IDS_SETTING_CHOICE + row_->choices + static_cast<UINT>(value - row_->minimum)),
          value);
  } else if (row_->control == SettingControl::kSkin) {
    add(resources_->String(IDS_SETTING_BUILT_IN), 0);
    for (const Text& skin : choices_->skins) add(skin, 0);
  } else if (row_->control == SettingControl::kPaper) {
    add(resources_->String(IDS_SETTING_OWN_PAPER), kNone);
    for (std::size_t i = 0; i < kPapers.size(); ++i)
      add(resources_->String(IDS_PAPER + static_cast<UINT>(i)),
          ColourNumber(kPapers[i].r, kPapers[i].g, kPapers[i].b));
    add(resources_->String(IDS_SETTING_OTHER_COLOUR), kOtherPaper);
  }
}

int SettingControls::MainWidth() const {
  switch (row_->control) {
    case SettingControl::kTimeOfDay:
    case SettingControl::kNumber: return 60;
    case SettingControl::kColour: return 40;
    case SettingControl::kPaper:
    case SettingControl::kHotKey:
    case SettingControl::kSound: return 180;
    case SettingControl::kInfo: return 300;
    default: return 260;
  }
}

int SettingControls::TextWidth(Part part, const PageScale& scale) const {
  const Text& text = texts_[part];
  SIZE size{};
  GetTextExtentPoint32W(scale.dc, Wide(text), static_cast<int>(text.size()), &size);
  return size.cx + 2;
}

int SettingControls::TextHeight(Part part, int width, const PageScale& scale) const {
  RECT area{0, 0, width, 0};
  return DrawTextW(scale.dc, Wide(texts_[part]), -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
}

int SettingControls::Height(const PageScale& scale) const {
  return scale.Scaled(row_->control == SettingControl::kSwitch ? kSwitchHeight : kLineHeight);
}

int SettingControls::LabelWidth(const PageScale& scale) const {
  return !Has(kLabel) || row_->continues ? 0 : TextWidth(kLabel, scale);
}

int SettingControls::ControlWidth(const PageScale& scale) const {
  switch (row_->control) {
    case SettingControl::kSwitch: return TextWidth(kMain, scale) + scale.Scaled(kBox);
    case SettingControl::kButton: return TextWidth(kMain, scale) + scale.Scaled(kButtonPadding);
    default: return scale.Scaled(MainWidth());
  }
}

int SettingControls::ButtonsWidth(const PageScale& scale) const {
  int width = Has(kSpin) ? scale.Scaled(kSpinWidth) : 0;
  for (const Part part : {kBrowse, kPlay})
    if (Has(part)) width += scale.Scaled(kGap + kButtonPadding) + TextWidth(part, scale);
  return width;
}

int SettingControls::Width(const PageScale& scale) const {
  const int label = Has(kLabel) ? TextWidth(kLabel, scale) + scale.Scaled(kGap) : 0;
  return label + ControlWidth(scale) + ButtonsWidth(scale);
}

void SettingControls::SetFont(HFONT font) {
  font_ = font;
  for (const HWND item : items_)
    if (item != nullptr) SendMessageW(item, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

int SettingControls::Place(int x, const SettingLine& line, const PageScale& scale) {
  const int tall = scale.Scaled(kControlHeight);
  const auto place = [&](Part part, int left, int width, int height, int extra = 0) {
    const int top = line.top + (line.height - height) / 2;
    Put(part, {left, top, left + width, top + height + extra});
    return left + width;
  };
  const int gap = scale.Scaled(kGap);
  if (Has(kLabel)) {
    const int right = place(kLabel, x, TextWidth(kLabel, scale), scale.line);
    x = row_->continues ? right + gap : line.column;
  }
  const bool drops = row_->control == SettingControl::kChoice || row_->control == SettingControl::kSkin ||
                     row_->control == SettingControl::kPaper;
  const int room = std::max(line.right - x - ButtonsWidth(scale), scale.Scaled(kNarrowest));
  const int width = std::min(ControlWidth(scale), room);
  extra_ = 0;
  if (row_->control == SettingControl::kSwitch && width < ControlWidth(scale))
    extra_ = std::max(TextHeight(kMain, width - scale.Scaled(kBox), scale) - tall, 0);
  const bool isField = drops || IsTyped() || row_->control == SettingControl::kHotKey;
  const int height = isField ? scale.field : row_->control == SettingControl::kInfo ? scale.line : tall;
  // The height of one that drops down is that of the open list.
  x = place(kMain, x, width, height, drops ? scale.Scaled(kOpenList) : extra_);
  // A field that got its text before its width shows the end of it.
  if (hotKey_) SendMessageW(items_[kMain], EM_SETSEL, 0, 0);
  if (Has(kSpin)) x = place(kSpin, x, scale.Scaled(kSpinWidth), scale.field);
  for (const Part part : {kBrowse, kPlay})
    if (Has(part)) x = place(part, x + gap, TextWidth(part, scale) + scale.Scaled(kButtonPadding), tall);
  if (Has(kUnit)) {
    const int unit = TextWidth(kUnit, scale);
    unitBelow_ = x + gap + unit > line.right;
    if (!unitBelow_) x = place(kUnit, x + gap, unit, scale.line);
  }
  return x + gap;
}

int SettingControls::PlaceBelow(const SettingLine& line, const PageScale& scale) {
  int y = line.top + line.height + extra_;
  const int width = std::max(line.right - line.column, scale.Scaled(kNarrowest));
  for (const Part part : {kUnit, kNotice}) {
    if (part == kUnit ? !unitBelow_ : !Has(part)) continue;
    const int height = std::max(TextHeight(part, width, scale), scale.Scaled(kNoticeHeight));
    Put(part, {line.column, y, line.column + width, y + height});
    y += height;
  }
  return y - line.top - line.height;
}

void SettingControls::Show(const SettingsDraft& draft, const Text& info) {
  if (row_->control == SettingControl::kInfo) {
    SetWindowTextW(items_[kMain], Wide(info));
  } else if (row_->access.get != nullptr) {
    ShowValue(draft.Value(*row_));
  }
  ShowState(draft);
}

void SettingControls::ShowValue(const SettingValue& value) const {
  const auto index = static_cast<WPARAM>(value.number - row_->minimum);
  switch (row_->control) {
    case SettingControl::kSwitch:
      SendMessageW(items_[kMain], BM_SETCHECK, value.number == 1 ? BST_CHECKED : BST_UNCHECKED, 0);
      break;
    // One that no entry stands for selects none, and stays until another is chosen.
    case SettingControl::kChoice: SendMessageW(items_[kMain], CB_SETCURSEL, index, 0); break;
    case SettingControl::kSkin: {
      const WPARAM at = value.text.empty()
                            ? 0
                            : static_cast<WPARAM>(SendMessageW(items_[kMain], CB_FINDSTRINGEXACT, 0,
                                                               reinterpret_cast<LPARAM>(Wide(value.text))));
      SendMessageW(items_[kMain], CB_SETCURSEL, at, 0);
      break;
    }
    case SettingControl::kPaper: SelectPaper(value.number); break;
    case SettingControl::kColour: SetColour(value.number); break;
    case SettingControl::kHotKey: hotKey_->SetKey(HotKeyOfNumber(value.number)); break;
    case SettingControl::kTimeOfDay: SetWindowTextW(items_[kMain], Wide(TimeOfDayText(value.number))); break;
    case SettingControl::kNumber: SetWindowTextW(items_[kMain], Wide(IntText(value.number))); break;
    default: SetWindowTextW(items_[kMain], Wide(value.text)); break;
  }
}

// A colour of one's own stands in the data of the last entry.
void SettingControls::SelectPaper(std::int32_t number) const {
  const HWND list = items_[kMain];
  for (int i = 0; i < kPaperEntries - 1; ++i)
    if (SendMessageW(list, CB_GETITEMDATA, static_cast<WPARAM>(i), 0) == number) {
      SendMessageW(list, CB_SETITEMDATA, kPaperEntries - 1, kOtherPaper);
      SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(i), 0);
      return;
    }
  SendMessageW(list, CB_SETITEMDATA, kPaperEntries - 1, number);
  SendMessageW(list, CB_SETCURSEL, kPaperEntries - 1, 0);
}

void SettingControls::SetColour(std::int32_t number) const {
  SetWindowLongPtrW(items_[kMain], GWLP_USERDATA, number);
  InvalidateRect(items_[kMain], nullptr, TRUE);
}

void SettingControls::ShowState(const SettingsDraft& draft) {
  if (std::exchange(enabled_, draft.IsEnabled(*row_)) != enabled_)
    for (const Part part : {kMain, kSpin, kBrowse, kPlay})
      if (items_[part] != nullptr) EnableWindow(items_[part], enabled_);
  if (draft.IsFixed(*row_)) ShowNotice(resources_->String(IDS_SETTING_FIXED));
}

bool SettingControls::ShowFault(const Text& fault) { return ShowNotice(fault); }

bool SettingControls::ShowNotice(const Text& text) {
  const Text before = std::exchange(texts_[kNotice], text);
  if (items_[kNotice] != nullptr && before != text) {
    SetWindowTextW(items_[kNotice], Wide(text));
    ShowWindow(items_[kNotice], text.empty() ? SW_HIDE : SW_SHOWNA);
  }
  return before.empty() != text.empty();
}

bool SettingControls::IsTyped() const {
  switch (row_->control) {
    case SettingControl::kNumber:
    case SettingControl::kTimeOfDay:
    case SettingControl::kText:
    case SettingControl::kWebAddress:
    case SettingControl::kFolder:
    case SettingControl::kSound: return true;
    default: return false;
  }
}

void SettingControls::Focus() const {
  SetFocus(items_[kMain]);
  if (IsTyped()) SendMessageW(items_[kMain], EM_SETSEL, 0, -1);
}

Text SettingControls::Entered() const { return WindowText(items_[kMain]); }

SettingValue SettingControls::Read() const {
  const HWND main = items_[kMain];
  const auto selected = static_cast<std::int32_t>(SendMessageW(main, CB_GETCURSEL, 0, 0));
  switch (row_->control) {
    case SettingControl::kSwitch: return {SendMessageW(main, BM_GETCHECK, 0, 0) == BST_CHECKED ? 1 : 0, {}};
    case SettingControl::kChoice: return {row_->minimum + selected, {}};
    case SettingControl::kSkin: return {0, selected == 0 ? Text() : Entered()};
    case SettingControl::kPaper:
      return {static_cast<std::int32_t>(SendMessageW(main, CB_GETITEMDATA, static_cast<WPARAM>(selected), 0)),
              {}};
    case SettingControl::kColour:
      return {static_cast<std::int32_t>(GetWindowLongPtrW(main, GWLP_USERDATA)), {}};
    case SettingControl::kHotKey: return {HotKeyNumber(hotKey_->Key()), {}};
    default: return {0, Entered()};
  }
}

}  // namespace jotlets

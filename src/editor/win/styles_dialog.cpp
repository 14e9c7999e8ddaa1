#include "editor/win/styles_dialog.h"

#include <algorithm>

#include "base/win/wide.h"
#include "editor/win/edit_style.h"
#include "editor/win/font_chooser.h"
#include "res/resource.h"
#include "ui/areas.h"
#include "ui/system_choosers.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr std::int32_t kTwipsPerPoint = 20;
constexpr std::int32_t kMaxPoints = 1000;
constexpr int kRowHeight = 22;  // pixels at the usual scale
constexpr int kNumberWidth = 22;
constexpr std::int32_t kLargestPreview = 15;  // pixels of letters, so that each fits its row

struct Flag {
  int control;
  std::uint8_t TextStyle::*member;
};
constexpr Flag kFlags[] = {{IDC_STYLE_ITALIC, &TextStyle::italic},
                           {IDC_STYLE_UNDERLINE, &TextStyle::underline}};

std::int32_t Scaled(HWND window, int pixels) {
  return MulDiv(pixels, static_cast<int>(GetDpiForWindow(window)), USER_DEFAULT_SCREEN_DPI);
}

void AddChoice(HWND list, const Text& text) {
  SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(text)));
}

FontStyle FirstFont() { return {.face = u"Segoe UI", .points10 = 105, .colour = {}}; }

}  // namespace

BStylesDlg::BStylesDlg(const Resources& resources, const Options& options, const HighlightColours& highlights,
                       std::optional<TextStyle> selection)
    : resources_(resources), options_(options), highlights_(highlights), selection_(std::move(selection)) {
  for (std::size_t number = 0; number < kTextStyles; ++number)
    styles_[number] = SavedTextStyle(options, number);
}

bool BStylesDlg::Edit(HWND owner) { return Show(resources_, IDD_STYLES, owner) == IDOK; }

std::vector<Text> BStylesDlg::Written() const {
  std::vector<Text> written = options_.styles;
  written.resize(std::max(written.size(), kTextStyles));
  for (std::size_t number = 0; number < kTextStyles; ++number) {
    // What was not touched stays as it was written, and one that is not set takes no line's text.
    if (styles_[number] == SavedTextStyle(options_, number)) continue;
    written[number] = styles_[number].IsSet() ? ComposeTextStyle(styles_[number]) : Text();
  }
  while (!written.empty() && written.back().empty()) written.pop_back();
  return written;
}

void BStylesDlg::OnInit() {
  const HWND list = Item(IDC_STYLE_LIST);
  SendMessageW(list, LB_SETITEMHEIGHT, 0, Scaled(Handle(), kRowHeight));
  for (const TextStyle& style : styles_)
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(StyleName(style))));
  for (const UINT id : {IDS_STYLE_AS_IT_IS, IDS_STYLE_LEFT, IDS_STYLE_CENTRE, IDS_STYLE_RIGHT})
    AddChoice(Item(IDC_STYLE_ALIGN), resources_.String(id));
  FillHighlights();
  SendDlgItemMessageW(Handle(), IDC_STYLE_NAME, EM_LIMITTEXT, 40, 0);
  EnableWindow(Item(IDC_STYLE_FROM_SELECTION), selection_.has_value());
  SendMessageW(list, LB_SETCURSEL, 0, 0);
  ShowSelected();
}

// None, and the five colours by the names that the menu of a text has for them.
void BStylesDlg::FillHighlights() {
  for (UINT code = 131; code <= 136; ++code)
    AddChoice(Item(IDC_STYLE_BACK), ReplaceAll(resources_.String(IDS_ACTION + code), u"&", u""));
}

void BStylesDlg::ShowHighlight() {
  const auto& back = Selected().back;
  WPARAM at = 0;
  if (back) at = static_cast<WPARAM>(1 + (std::ranges::find(highlights_, *back) - highlights_.begin()));
  // A colour that is none of the five has no entry, and stays as long as none is chosen.
  SendDlgItemMessageW(Handle(), IDC_STYLE_BACK, CB_SETCURSEL, at > highlights_.size() ? WPARAM(-1) : at, 0);
}

void BStylesDlg::ShowSelected() {
  filling_ = true;
  const TextStyle& style = Selected();
  if (ItemText(IDC_STYLE_NAME) != style.name) SetDlgItemTextW(Handle(), IDC_STYLE_NAME, Wide(style.name));
  const Text font = style.IsSet() ? style.faceName + u", " + IntText(Points10Of(style) / 10) + u" pt"
                                  : resources_.String(IDS_STYLE_NONE);
  SetDlgItemTextW(Handle(), IDC_STYLE_FONT_NAME, Wide(font));
  CheckDlgButton(Handle(), IDC_STYLE_BOLD, EditStyleOf(style).font.bold);
  for (const Flag& flag : kFlags) CheckDlgButton(Handle(), flag.control, style.*flag.member != 0);
  ShowHighlight();
  const ParagraphStyle paragraphs = style.paragraphs.value_or(ParagraphStyle());
  const auto alignment = style.paragraphs ? 1 + static_cast<WPARAM>(paragraphs.alignment) : 0;
  SendDlgItemMessageW(Handle(), IDC_STYLE_ALIGN, CB_SETCURSEL, alignment, 0);
  SetTwips(IDC_STYLE_INDENT, paragraphs.indent);
  SetTwips(IDC_STYLE_BEFORE, paragraphs.before);
  SetTwips(IDC_STYLE_AFTER, paragraphs.after);
  for (const int control : {IDC_STYLE_INDENT, IDC_STYLE_BEFORE, IDC_STYLE_AFTER})
    EnableWindow(Item(control), style.paragraphs.has_value());
  EnableWindow(Item(IDC_STYLE_CLEAR), style.IsSet());
  filling_ = false;
  InvalidateRect(Item(IDC_STYLE_LIST), nullptr, FALSE);
  InvalidateRect(Item(IDC_STYLE_COLOUR), nullptr, FALSE);
}

std::size_t BStylesDlg::Chosen(int control) const {
  const LRESULT at = SendMessageW(Item(control), CB_GETCURSEL, 0, 0);
  return at < 0 ? highlights_.size() + 1 : static_cast<std::size_t>(at);
}

std::int32_t BStylesDlg::Twips(int control) const {
  return std::clamp(ParseInt(ItemText(control)), 0, kMaxPoints) * kTwipsPerPoint;
}

void BStylesDlg::SetTwips(int control, std::int32_t twips) {
  SetDlgItemInt(Handle(), control, static_cast<UINT>(twips / kTwipsPerPoint), FALSE);
}

void BStylesDlg::ReadParagraphs() {
  const std::size_t alignment = Chosen(IDC_STYLE_ALIGN);
  const bool said = Selected().paragraphs.has_value();
  if (alignment == 0) {
    Selected().paragraphs.reset();
  } else {
    Selected().paragraphs = {static_cast<Alignment>(alignment - 1), Twips(IDC_STYLE_INDENT),
                             Twips(IDC_STYLE_BEFORE), Twips(IDC_STYLE_AFTER)};
  }
  if (said != (alignment != 0)) ShowSelected();
}

// What the controls say of the selected style.
void BStylesDlg::Read() {
  TextStyle& style = Selected();
  style.name = ItemText(IDC_STYLE_NAME);
  if (IsChecked(IDC_STYLE_BOLD) != EditStyleOf(style).font.bold)
    style.weight = IsChecked(IDC_STYLE_BOLD) ? FW_BOLD : FW_NORMAL;
  for (const Flag& flag : kFlags) style.*flag.member = IsChecked(flag.control);
  const std::size_t back = Chosen(IDC_STYLE_BACK);
  if (back == 0) style.back.reset();
  if (back > 0 && back <= highlights_.size()) style.back = highlights_[back - 1];
  ReadParagraphs();
  InvalidateRect(Item(IDC_STYLE_LIST), nullptr, FALSE);
}

void BStylesDlg::Choose(const TextStyle& style) {
  Selected() = style;
  ShowSelected();
}

void BStylesDlg::ChooseFont() {
  const FontStyle font = Selected().IsSet() ? EditStyleOf(Selected()).font : FirstFont();
  if (const auto chosen = ChooseSystemFont(Handle(), font)) Choose(WithFont(Selected(), *chosen));
}

void BStylesDlg::ChooseColour() {
  if (const auto colour = ChooseSystemColour(Handle(), Selected().colour)) {
    Selected().colour = *colour;
    ShowSelected();
  }
}

bool BStylesDlg::OnCommand(UINT control, UINT notification) {
  if (filling_) return false;
  switch (control) {
    case IDC_STYLE_LIST:
      if (notification != LBN_SELCHANGE) return false;
      selected_ = static_cast<std::size_t>(
          std::clamp<LRESULT>(SendMessageW(Item(IDC_STYLE_LIST), LB_GETCURSEL, 0, 0), 0, kTextStyles - 1));
      ShowSelected();
      return true;
    case IDC_STYLE_FONT: return ChooseFont(), true;
    case IDC_STYLE_COLOUR: return ChooseColour(), true;
    case IDC_STYLE_CLEAR: return Choose({}), true;
    case IDC_STYLE_FROM_SELECTION: {
      TextStyle taken = selection_.value_or(Selected());
      taken.name = Selected().name;
      return Choose(taken), true;
    }
    case IDOK:
    case IDCANCEL: return false;
    default: break;
  }
  const bool changed =
      notification == EN_CHANGE || notification == BN_CLICKED || notification == CBN_SELCHANGE;
  if (!changed) return false;
  // Whatever is said first of a style makes one of it.
  if (!Selected().IsSet()) {
    Selected() = WithFont({}, FirstFont());
    Read();
    ShowSelected();
  } else {
    Read();
  }
  return true;
}

void BStylesDlg::OnDrawItem(const DRAWITEMSTRUCT& item) {
  if (item.CtlID == IDC_STYLE_COLOUR) {
    const HBRUSH brush = CreateSolidBrush(ToCOLORREF(Selected().colour));
    FillRect(item.hDC, &item.rcItem, brush);
    DeleteObject(brush);
    return;
  }
  if (item.itemID >= kTextStyles) return;
  const TextStyle& style = styles_[item.itemID];
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  const WindowColours& colours = Look().Colours();
  FillArea(item.hDC, item.rcItem, selected ? colours.chosen : colours.field);
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, ToCOLORREF(selected ? colours.chosenText : colours.text));
  RECT row = item.rcItem;
  row.left += Scaled(Handle(), 4);
  constexpr UINT kFlagsOfText = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
  DrawTextW(item.hDC, Wide(IntText(static_cast<int>(item.itemID))), -1, &row, kFlagsOfText);
  row.left += Scaled(Handle(), kNumberWidth);
  LOGFONTW logical = ToLogFont(EditStyleOf(style).font);
  logical.lfHeight = -std::clamp<LONG>(-logical.lfHeight, 8, Scaled(Handle(), kLargestPreview));
  const UniqueGdi<HFONT> font(CreateFontIndirectW(&logical));
  const HGDIOBJ before = style.IsSet() ? SelectObject(item.hDC, font.get()) : nullptr;
  if (style.back && !selected) SetBkColor(item.hDC, ToCOLORREF(*style.back));
  if (style.back && !selected) SetBkMode(item.hDC, OPAQUE);
  if (style.IsSet() && !selected && style.colour != Colour{})
    SetTextColor(item.hDC, ToCOLORREF(style.colour));
  const Text name = style.IsSet() ? StyleName(style) : resources_.String(IDS_STYLE_NONE);
  DrawTextW(item.hDC, Wide(name), -1, &row, kFlagsOfText);
  if (before != nullptr) SelectObject(item.hDC, before);
}

}  // namespace jotlets

#include "skin/win/skin_dialog.h"

#include <algorithm>

#include "base/win/wide.h"
#include "res/resource.h"
#include "skin/skin_layout.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr std::int32_t kPreviewMargin = 8;

class SampleWords final : public SkinWords {
 public:
  explicit SampleWords(Text title) : title_(std::move(title)) {}
  std::optional<Text> Find(TextView placeholder) const override {
    return placeholder == u"TITLE" ? title_ : Text();
  }

 private:
  Text title_;
};

// What the makers say of a skin, a line each.
Text About(const SkinSummary& skin) {
  Text about;
  for (const Text* line : {&skin.notes, &skin.authorName, &skin.authorEmail, &skin.authorUrl}) {
    if (!line->empty()) about.append(*line).append(u"\r\n");
  }
  return about;
}

}  // namespace

BSkinDlg::BSkinDlg(const Resources& resources, ProgramSkins& skins, TextView name, Colour colour,
                   Colour darkColour)
    : resources_(resources), skins_(skins), colour_(colour), darkColour_(darkColour) {
  // What is in the folder now counts, not what it was at the first look.
  skins_.Library().Forget();
  const SkinData& first = skins_.Library().Get({}, false)->data;
  listed_.push_back(SummaryOf(first.skinName, first));
  listed_.back().isBuiltIn = true;
  for (SkinSummary& skin : skins_.Library().List()) {
    if (!skin.isStack) listed_.push_back(std::move(skin));
  }
  const auto named = std::find_if(listed_.begin(), listed_.end(), [name](const SkinSummary& skin) {
    return EqualIgnoreCase(skin.name, SkinStem(name));
  });
  if (named != listed_.end()) first_ = static_cast<std::size_t>(named - listed_.begin());
}

std::optional<SkinChoice> BSkinDlg::Choose(HWND owner) {
  const INT_PTR answer = Show(resources_, IDD_SKIN, owner);
  if (answer != IDOK && answer != IDC_SKIN_DEFAULT) return std::nullopt;
  choice_.asDefault = answer == IDC_SKIN_DEFAULT;
  return choice_;
}

void BSkinDlg::OnInit() {
  const HWND list = Item(IDC_SKIN_LIST);
  for (const SkinSummary& skin : listed_) {
    const Text name = skin.skinName.empty() ? skin.name : skin.skinName;
    const Text line = skin.isBuiltIn ? ReplaceAll(resources_.String(IDS_SKIN_BUILT_IN), u"%s", name) : name;
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(line)));
  }
  SendMessageW(list, LB_SETCURSEL, first_, 0);
  ShowSelected();
}

const SkinSummary* BSkinDlg::Selected() const {
  const LRESULT at = SendMessageW(Item(IDC_SKIN_LIST), LB_GETCURSEL, 0, 0);
  if (at < 0 || static_cast<std::size_t>(at) >= listed_.size()) return nullptr;
  return &listed_[static_cast<std::size_t>(at)];
}

void BSkinDlg::ShowSelected() {
  const SkinSummary* skin = Selected();
  if (skin == nullptr) return;
  shown_ = skins_.OfNote(skin->name, static_cast<std::int32_t>(GetDpiForWindow(Handle())));
  SetDlgItemTextW(Handle(), IDC_SKIN_ABOUT, Wide(About(*skin)));
  InvalidateRect(Item(IDC_SKIN_PREVIEW), nullptr, FALSE);
}

bool BSkinDlg::OnCommand(UINT control, UINT notification) {
  if (control == IDC_SKIN_LIST && notification == LBN_SELCHANGE) {
    ShowSelected();
    return true;
  }
  const bool doubleClick = control == IDC_SKIN_LIST && notification == LBN_DBLCLK;
  if (control != IDOK && control != IDC_SKIN_DEFAULT && !doubleClick) return false;
  if (const SkinSummary* skin = Selected()) {
    choice_.name = skin->name;
    End(doubleClick ? IDOK : static_cast<INT_PTR>(control));
  }
  return true;
}

void BSkinDlg::OnDrawItem(const DRAWITEMSTRUCT& item) {
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_APPWORKSPACE));
  if (!shown_) return;
  SkinView view;
  view.window = {static_cast<std::int32_t>(item.rcItem.right) - 2 * kPreviewMargin,
                 static_cast<std::int32_t>(item.rcItem.bottom) - 2 * kPreviewMargin};
  view.colour = Look().IsDark() && shown_->data.darkPapers ? darkColour_ : colour_;
  view.focus = true;
  view.mouseOver = true;
  view.states.Set(SkinState::kTitle, true);
  view.states.Set(SkinState::kOwnTitle, true);
  SetViewportOrgEx(item.hDC, kPreviewMargin, kPreviewMargin, nullptr);
  const UniqueGdi<HRGN> region(MakeSkinRegion(shown_->data, view.window));
  if (region) {
    OffsetRgn(region.get(), kPreviewMargin, kPreviewMargin);
    SelectClipRgn(item.hDC, region.get());
  }
  skins_.Renderer().Paint(item.hDC, {0, 0, view.window.width, view.window.height}, *shown_, view,
                          SampleWords(resources_.String(IDS_SKIN_SAMPLE)));
  SelectClipRgn(item.hDC, nullptr);
  SetViewportOrgEx(item.hDC, 0, 0, nullptr);
}

}  // namespace jotlets

// What the manage window shows of a search, and of texts that come one by one.
#include <algorithm>
#include <utility>

#include "base/win/wide.h"
#include "manage/win/manage_dialog.h"
#include "res/resource.h"

namespace jotlets {
namespace {

// How long texts are read at a stretch, unless something else is to be done, and the pause after it:
// milliseconds.
constexpr ULONGLONG kReadingSlice = 50;
constexpr UINT kReadingPause = USER_TIMER_MINIMUM;
constexpr int kReadAtOnce = 8;

Text NumberText(std::size_t value) { return IntText(static_cast<std::int64_t>(value)); }

// On one line of a control.
bool Fits(HWND control, const Text& words) {
  const HDC dc = GetDC(control);
  SIZE size{};
  {
    const Selected font(dc, FontOf(control));
    GetTextExtentPoint32W(dc, Wide(words), static_cast<int>(words.size()), &size);
  }
  ReleaseDC(control, dc);
  RECT area{};
  GetClientRect(control, &area);
  return size.cx <= area.right;
}

}  // namespace

void BManageDlg::Search() {
  ManageTable::Selection selection = table_.Selected();
  selection.inherited = false;
  wanted_.clear();
  list_.Search(ItemText(IDC_MANAGE_SEARCH), options_.manageWindowSearchWhat);
  // What is looked for among very many is not what is shown of them otherwise.
  owner_.FillManageList(views_.Chosen(), list_);
  table_.ShowSearch(ItemText(IDC_MANAGE_SEARCH));
  ShowRows(selection);
  if (ListView_GetSelectedCount(Item(IDC_MANAGE_LIST)) == 0)
    ListView_EnsureVisible(Item(IDC_MANAGE_LIST), 0, FALSE);
  AskSurvey();
  ReadTexts();
}

// The list itself looks for what stands anywhere in the notes that it has. The index knows of all notes,
// knows accents for what they are, and reads what is typed as the quick find does.
void BManageDlg::AskSurvey() {
  const std::int32_t what = options_.manageWindowSearchWhat;
  SurveyQuestion question;
  if ((what & (kSearchTitles | kSearchTexts)) != 0) question.typed = TrimBlanks(ItemText(IDC_MANAGE_SEARCH));
  question.titles = (what & kSearchTexts) == 0;
  question.places = SearchedPlaces(View());
  question.category = views_.Chosen().category;
  const bool none = question.typed.empty();
  asked_ = question;
  if (owner_.AskSurvey(std::move(question)) && !none) return;
  views_.ShowHits({});
  views_.Follow(resources_, owner_);
  ChangeList([this] { return list_.SetFound({}); });
}

void BManageDlg::ShowSurvey(const SearchSurvey& survey) {
  if (!IsOpen() || survey.question != asked_) return;
  std::unordered_set<Text> found;
  for (const SearchSurvey::Hit& hit : survey.hits) found.insert(FoldCase(hit.id));
  views_.ShowHits(survey);
  views_.Follow(resources_, owner_);
  ChangeList([&] {
    const bool filled = owner_.FillManageList(views_.Chosen(), list_);
    return list_.SetFound(std::move(found)) || filled;
  });
  ReadTexts();
}

// Texts are read in slices: what the user does goes first.
void BManageDlg::ReadTexts() {
  const HWND shown = Item(IDC_MANAGE_LIST);
  const auto top = static_cast<std::size_t>(std::max(ListView_GetTopIndex(shown), 0));
  list_.WantTexts(top, top + static_cast<std::size_t>(ListView_GetCountPerPage(shown)) + 1);
  table_.FetchRows();
  if (!list_.IsReading()) return UpdateState();
  ChangeList([this] {
    const ULONGLONG end = GetTickCount64() + kReadingSlice;
    do {
      for (int i = 0; i < kReadAtOnce && list_.IsReading(); ++i) list_.ReadOne();
    } while (list_.IsReading() && GetTickCount64() < end &&
             GetQueueStatus(QS_INPUT | QS_SENDMESSAGE | QS_POSTMESSAGE) == 0);
    return list_.Settle();
  });
  // Titles that came from texts.
  InvalidateRect(Item(IDC_MANAGE_LIST), nullptr, FALSE);
  if (list_.IsReading()) SetTimer(Handle(), kReadTimer, kReadingPause, nullptr);
}

void BManageDlg::FollowStored(const std::vector<StoredBrowser::Page>& pages) {
  if (!IsOpen()) return;
  if (list_.IsByPlace() && !pages.empty()) {
    for (const StoredBrowser::Page& page : pages) list_.ByPlace().Put(page.keys, page.notes);
    InvalidateRect(Item(IDC_MANAGE_LIST), nullptr, FALSE);
    // Before their texts are read.
    UpdateWindow(Item(IDC_MANAGE_LIST));
  }
  views_.Follow(resources_, owner_);
  ChangeList([this] { return owner_.FillManageList(views_.Chosen(), list_); });
  ReadTexts();
}

// What letting go would do stands where the numbers are.
void BManageDlg::ShowDrag() {
  const std::optional<ManageDrag::Target> target = drag_.Follow();
  const std::size_t count = ListView_GetSelectedCount(Item(IDC_MANAGE_LIST));
  if (!target) return ShowStatus(count);
  const Text words = resources_.String(target->row ? IDS_MANAGE_DROP : IDS_MANAGE_DROP_OUT);
  const Text told = ReplaceAll(ReplaceAll(words, u"%n", NumberText(count)), u"%s",
                               target->row ? views_.NameOf(*target->row) : Text());
  if (ItemText(IDC_MANAGE_STATUS) != told) SetDlgItemTextW(Handle(), IDC_MANAGE_STATUS, Wide(told));
}

void BManageDlg::ShowStatus(std::size_t selected) {
  Text status = ReplaceAll(ReplaceAll(resources_.String(IDS_MANAGE_COUNT), u"%n", NumberText(list_.Size())),
                           u"%m", NumberText(list_.Total()));
  const Text chosen =
      selected > 0 ? u", " + ReplaceAll(resources_.String(IDS_MANAGE_SELECTED), u"%n", NumberText(selected))
                   : Text();
  // In a narrow window the rows show that themselves.
  if (Fits(Item(IDC_MANAGE_STATUS), status + chosen)) status += chosen;
  const std::size_t all = owner_.CountStored(views_.Chosen()).value_or(0);
  if (!list_.IsByPlace() && all > list_.Total())
    status += u", " + ReplaceAll(resources_.String(IDS_MANAGE_NEWEST), u"%n", NumberText(all));
  const bool sorts = list_.IsByPlace() && list_.ByPlace().IsSorting();
  if (sorts) status += u", " + resources_.String(IDS_MANAGE_SORTING);
  if (list_.IsSearching()) status += u", " + resources_.String(IDS_MANAGE_READING);
  if (ItemText(IDC_MANAGE_STATUS) != status) SetWindowTextW(Item(IDC_MANAGE_STATUS), Wide(status));
  // Why there is nothing to be seen, and where there is.
  const HWND words = Item(IDC_MANAGE_EMPTY);
  const bool isEmpty = list_.Size() == 0 && !list_.IsSearching() && !sorts;
  bool isElsewhere = false;
  if (isEmpty) {
    const bool searches = !TrimBlanks(ItemText(IDC_MANAGE_SEARCH)).empty();
    Text text =
        resources_.String(searches ? IDS_MANAGE_NOT_FOUND : IDS_MANAGE_NOTHING + static_cast<UINT>(View()));
    const Text fault = View() == ManageView::kStored ? owner_.StoreFault() : Text();
    if (!fault.empty()) text = ReplaceAll(resources_.String(IDS_MANAGE_STORE_FAULT), u"%s", fault);
    const Text elsewhere = searches ? views_.Elsewhere() : Text();
    isElsewhere = !elsewhere.empty() && fault.empty();
    if (!elsewhere.empty())
      text += u"\n" + ReplaceAll(resources_.String(IDS_MANAGE_ELSEWHERE), u"%s", elsewhere);
    if (ItemText(IDC_MANAGE_EMPTY) != text) SetWindowTextW(words, Wide(text));
  }
  const auto show = [](HWND control, bool shown) {
    if ((IsWindowVisible(control) != FALSE) != shown) ShowWindow(control, shown ? SW_SHOWNA : SW_HIDE);
  };
  show(words, isEmpty);
  show(Item(IDC_MANAGE_EVERYWHERE), isElsewhere);
}

}  // namespace jotlets

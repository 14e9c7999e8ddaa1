// Whether the texts of dialogs have room in them, in every language that the program is built in.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "base/win/wide.h"
#include "res/picture_numbers.h"
#include "res/resource.h"
#include "ui/resources.h"
#include "ui/screen.h"
#include "ui/window.h"

namespace jotlets {
namespace {

// What a button keeps free beside its text, in pixels at 96 dots per inch.
constexpr int kBoxOfButton = 17;
constexpr int kEdgesOfButton = 8;
constexpr int kEdgesOfGroup = 16;

struct LanguageCase {
  const char* name;
  TextView file;
  int dpi;
};

void PrintTo(const LanguageCase& language, std::ostream* out) { *out << language.name << language.dpi; }

// A template, to be changed: where it has what this test sets.
class Template {
 public:
  Template(HMODULE module, HRSRC resource) : words_(SizeofResource(module, resource) / 2) {
    std::memcpy(words_.data(), LockResource(LoadResource(module, resource)), words_.size() * 2);
  }

  // Neither seen nor within another, and in letters of so many pixels: all lengths of a dialog go by them.
  void Hide(int letterHeight) {
    constexpr std::size_t kStyle = 6;
    constexpr std::size_t kMenu = 13;
    DWORD style = 0;
    std::memcpy(&style, &words_[kStyle], sizeof style);
    style = (style & ~static_cast<DWORD>(WS_VISIBLE | WS_CHILD | DS_CONTROL)) | WS_POPUP;
    std::memcpy(&words_[kStyle], &style, sizeof style);
    const std::size_t size = BehindText(BehindText(BehindText(kMenu)));
    const HDC screen = GetDC(nullptr);
    words_[size] = static_cast<WORD>(MulDiv(letterHeight, 72, GetDeviceCaps(screen, LOGPIXELSY)));
    ReleaseDC(nullptr, screen);
  }

  const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

 private:
  std::size_t BehindText(std::size_t at) const {
    if (words_[at] == 0xFFFF) return at + 2;
    while (words_[at] != 0) ++at;
    return at + 1;
  }

  std::vector<WORD> words_;
};

Text ClassOf(HWND control) {
  wchar_t name[64];
  return Text(FromWide(name, static_cast<std::size_t>(GetClassNameW(control, name, 64))));
}

// The room for a control's text; empty for one whose text is not drawn in its rectangle.
SIZE RoomOf(HWND control, int dpi) {
  RECT client{};
  GetClientRect(control, &client);
  const auto pixels = [dpi](int length) { return MulDiv(length, dpi, 96); };
  if (EqualIgnoreCase(ClassOf(control), u"static")) return {client.right, client.bottom};
  if (!EqualIgnoreCase(ClassOf(control), u"button")) return {};
  switch (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON: return {client.right - pixels(kEdgesOfButton), client.bottom};
    case BS_AUTOCHECKBOX:
    case BS_AUTORADIOBUTTON: return {client.right - pixels(kBoxOfButton), client.bottom};
    case BS_GROUPBOX: return {client.right - pixels(kEdgesOfGroup), client.bottom};
    default: return {};
  }
}

// Lines break in static texts alone.
SIZE SizeOf(HWND control, const Text& words, LONG width) {
  RECT taken{0, 0, width, 0};
  const HDC context = GetDC(control);
  const HGDIOBJ before =
      SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)));
  const UINT breaks = EqualIgnoreCase(ClassOf(control), u"static") ? DT_WORDBREAK : DT_SINGLELINE;
  DrawTextW(context, Wide(words), static_cast<int>(words.size()), &taken, DT_CALCRECT | breaks);
  SelectObject(context, before);
  ReleaseDC(control, context);
  return {taken.right, taken.bottom};
}

std::vector<std::string> CutTexts(HWND dialog, int dpi) {
  std::vector<std::string> cut;
  for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
       control = GetWindow(control, GW_HWNDNEXT)) {
    const Text words = WindowText(control);
    const SIZE room = RoomOf(control, dpi);
    if (words.empty() || room.cy == 0) continue;
    const SIZE taken = SizeOf(control, words, room.cx);
    if (taken.cx > room.cx || taken.cy > room.cy)
      cut.push_back("'" + ToUtf8(words) + "': " + std::to_string(taken.cx) + " x " +
                    std::to_string(taken.cy) + " in " + std::to_string(room.cx) + " x " +
                    std::to_string(room.cy));
  }
  return cut;
}

// What stands in for its placeholders.
constexpr TextView kNumber = u"12";
constexpr TextView kDay = u"24.09.2026 18:30";
constexpr TextView kTime = u"Donnerstag, 24. September 2026, 18:30";
constexpr TextView kPath = u"C:\\Users\\Someone\\AppData\\Roaming\\Jotlets\\jotlets.ini";
constexpr TextView kNames = u"Priority, Colour of the label, Due date, 12 more";

// A text that the program puts into a control of a dialog.
struct Filled {
  WORD dialog;
  int control;
  int text;
  TextView put = {};
};

constexpr Filled kFilled[] = {
    {IDD_RESTORE, IDC_RESTORE_TEXT, IDS_RESTORE_ANY},
    {IDD_RESTORE, IDC_RESTORE_TEXT, IDS_RESTORE_FIRST_RUN},
    {IDD_JOB, IDC_JOB_TEXT, IDS_STORE_RESCUE_RUNS},
    {IDD_JOB, IDC_JOB_TEXT, IDS_IMPORT_RUNS},
    {IDD_JOB, IDC_JOB_TEXT, IDS_SAVING_COPIES},
    {IDD_JOB, IDC_JOB_TEXT, IDS_IMPORT_UNDONE},
    {IDD_JOB, IDC_JOB_TEXT, IDS_MANAGE_ACTS},
    {IDD_TEXT, IDC_TEXT_LABEL, IDS_LABEL_ADDRESS},
    {IDD_RECURRENCE, IDC_REC_SENTENCE, IDS_RULE + 1, kTime},
    {IDD_RECURRENCE, IDC_REC_WORDS, IDS_APPEARS_TOO_LATE, kTime},
    {IDD_RECURRENCE, IDC_REC_WORDS, IDS_RULE_FAULT + 3},
    {IDD_ATTACH, IDC_ATTACH_PREVIEW, IDS_ATTACH_MATCHES, kNumber},
    {IDD_ATTACH, IDC_ATTACH_PREVIEW, IDS_ATTACH_NO_CLASS},
    {IDD_CLOSE_STACK, IDC_CHOICE_QUESTION, IDS_STACK_CLOSING, kNumber},
    {IDD_SAVE_FAILED, IDC_CHOICE_QUESTION, IDS_SAVE_FAILED_AT_EXIT, kPath},
    {IDD_FOLDER_MISSING, IDC_CHOICE_QUESTION, IDS_FOLDER_MISSING, kPath},
    {IDD_JOURNAL_UNWRITTEN, IDC_CHOICE_QUESTION, IDS_JOURNAL_UNWRITTEN, kPath},
    {IDD_FRIENDS, IDC_FRIEND_UPDATED, IDS_FRIEND_UPDATED, kDay},
    {IDD_MANAGE, IDC_MANAGE_EMPTY, IDS_MANAGE_STORE_FAULT, kPath},
    {IDD_SLEEP, IDC_SLEEP_WORDS, IDS_WAKES, kTime},
    {IDD_SLEEP, IDC_SLEEP_WORDS, IDS_SLEEP_PAST},
    {IDD_ALARM, IDC_SLEEP_WORDS, IDS_ALARM_PAST},
    {IDD_ALT_F4, IDC_CHOICE_QUESTION, IDS_ALT_F4},
    {IDD_COLUMNS, IDC_COLUMNS_WORDS, IDS_COLUMNS_LEFT, kNames},
    {IDD_PICTURE_SIZE, IDC_PICTURE_WORDS, IDS_NO_PICTURE_SIZE},
};

Text SampleOf(HMODULE module, const Filled& filled) {
  wchar_t words[1024];
  const int length = LoadStringW(module, static_cast<UINT>(filled.text), words, 1024);
  Text sample(FromWide(words, static_cast<std::size_t>(length)));
  EXPECT_FALSE(sample.empty()) << filled.text;
  for (const TextView placeholder : {u"%d", u"%t", u"%s"})
    sample = ReplaceAll(sample, placeholder, filled.put);
  return sample;
}

UniqueModule Library(TextView file) {
  const Text path = ProgramFolder() + Text(file);
  UniqueModule module(
      LoadLibraryExW(Wide(path), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
  EXPECT_TRUE(module) << ToUtf8(path);
  return module;
}

std::vector<WORD> ResourcesOf(HMODULE module, const wchar_t* type) {
  std::vector<WORD> ids;
  EnumResourceNamesW(
      module, type,
      [](HMODULE, LPCWSTR, LPWSTR name, LONG_PTR list) {
        reinterpret_cast<std::vector<WORD>*>(list)->push_back(LOWORD(name));
        return TRUE;
      },
      reinterpret_cast<LONG_PTR>(&ids));
  return ids;
}

// The numbers of all texts.
std::vector<UINT> TextsOf(HMODULE module) {
  constexpr UINT kOfBlock = 16;
  std::vector<UINT> ids;
  for (const WORD block : ResourcesOf(module, reinterpret_cast<const wchar_t*>(RT_STRING))) {
    for (UINT id = (block - 1u) * kOfBlock; id < block * kOfBlock; ++id) {
      const wchar_t* text = nullptr;
      if (LoadStringW(module, id, reinterpret_cast<wchar_t*>(&text), 0) > 0) ids.push_back(id);
    }
  }
  return ids;
}

class Languages : public ::testing::TestWithParam<LanguageCase> {};

INSTANTIATE_TEST_SUITE_P(All, Languages,
                         ::testing::Values(LanguageCase{"English", u"jotlets.exe", 96},
                                           LanguageCase{"English", u"jotlets.exe", 192},
                                           LanguageCase{"German", u"languages\\de\\language80.dll", 96},
                                           LanguageCase{"German", u"languages\\de\\language80.dll", 192}),
                         ::testing::PrintToStringParamName());

TEST_P(Languages, HaveRoomForEveryTextOfADialog) {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_DATE_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);
  const UniqueModule module = Library(GetParam().file);
  const std::vector<WORD> ids = ResourcesOf(module.get(), reinterpret_cast<const wchar_t*>(RT_DIALOG));
  EXPECT_GE(ids.size(), 20u);
  for (const WORD id : ids) {
    Template shape(module.get(), FindResourceW(module.get(), MAKEINTRESOURCEW(id),
                                               reinterpret_cast<const wchar_t*>(RT_DIALOG)));
    constexpr int kLetterHeight = 12;
    shape.Hide(MulDiv(kLetterHeight, GetParam().dpi, 96));
    const HWND dialog = CreateDialogIndirectParamW(
        GetModuleHandleW(nullptr), shape.Get(), nullptr,
        [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    ASSERT_NE(dialog, nullptr) << "dialog " << id;
    const auto look = [&] {
      for (const std::string& cut : CutTexts(dialog, GetParam().dpi))
        ADD_FAILURE() << "dialog " << id << ": " << cut;
    };
    look();
    for (const Filled& filled : kFilled) {
      if (filled.dialog != id) continue;
      SetDlgItemTextW(dialog, filled.control, Wide(SampleOf(module.get(), filled)));
      look();
    }
    DestroyWindow(dialog);
  }
}

TEST(GermanLibrary, HasEveryMenuDialogAndTextOfTheProgramInGerman) {
  const UniqueModule program = Library(u"jotlets.exe");
  const UniqueModule german = Library(u"languages\\de\\language80.dll");
  for (const auto* const type : {RT_MENU, RT_DIALOG}) {
    const auto* const name = reinterpret_cast<const wchar_t*>(type);
    EXPECT_EQ(ResourcesOf(german.get(), name), ResourcesOf(program.get(), name));
  }
  EXPECT_EQ(TextsOf(german.get()), TextsOf(program.get()));
  EXPECT_GE(TextsOf(german.get()).size(), 500u);
  EXPECT_EQ(SampleOf(german.get(), {0, 0, IDS_LANGUAGE}), u"Deutsch");
  // Where the program would look for them, it would take them from here.
  for (const auto* const type : {RT_RCDATA, RT_ACCELERATOR, RT_BITMAP, RT_ICON})
    EXPECT_TRUE(ResourcesOf(german.get(), reinterpret_cast<const wchar_t*>(type)).empty());
}

}  // namespace
}  // namespace jotlets

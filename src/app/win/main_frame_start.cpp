// The start of the program: from the empty window to notes on the desktop.
#include "app/win/hot_keys.h"
#include "app/win/main_frame.h"
#include "app/win/registry_policy.h"
#include "app/win/system_facts.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "data/saving.h"
#include "desk/win/orphan_dialog.h"
#include "res/resource.h"
#include "ui/user_messages.h"

namespace jotlets {
namespace {

// What became of a damaged data file.
Text DescribeDamage(const Resources& resources, const LoadedData& loaded) {
  Text text = loaded.MustNotBeReplaced()
                  ? resources.String(IDS_DAMAGED_NOT_KEPT)
                  : ReplaceAll(resources.String(IDS_DAMAGED_KEPT), u"%s", loaded.keptAs);
  if (!loaded.loadedInstead.empty()) {
    text += u"\n" + ReplaceAll(resources.String(IDS_DAMAGED_INSTEAD), u"%s", loaded.loadedInstead);
  }
  return text;
}

constexpr UINT kFlashPeriod = 500;
constexpr UINT kMinutePeriod = 60000;
constexpr UINT kSecondPeriod = 1000;
constexpr UINT kAnimationPeriod = 17;

}  // namespace

bool CMainFrame::Start() {
  taskbarCreated_ = RegisterWindowMessageW(L"TaskbarCreated");
  if (!RegisterWindowClass(kMainWindowClass) || !Create(kMainWindowClass, WideLiteral(kVersionText), {}, {}))
    return false;
  // The shell is less privileged than a program started as administrator; its broadcast must still come
  // through.
  ChangeWindowMessageFilterEx(Handle(), taskbarCreated_, MSGFLT_ALLOW, nullptr);
  if (OnCreate()) return true;
  exiting_ = true;
  Destroy();
  return false;
}

bool CMainFrame::OnCreate() {
  for (const wchar_t* name : {kJotletClass, kStackClass, kNoteShadowClass, kStackShadowClass}) {
    if (!RegisterWindowClass(name, nullptr, CS_DBLCLKS))
      Log(kLogLifecycle, LastErrorText(u"RegisterClassEx"));
  }
  tray_.Add(Handle(), kTrayMessage);
  commands_.SetWindow(Handle());
  policy_ = ReadPolicy(RegistryPolicy(), log_);
  if (!FindDataFolder()) return false;
  skins_.Open(folder_);
  if (!RestoreUnderWay(files_, ansi_, folder_).empty()) {
    OpenBackups();
    backups_.FinishInterruptedRestore();
  }
  if (exiting_) return false;
  bool firstRun = !files_.Exists(folder_ + Text(kDataFileName));
  if (firstRun) {
    OpenBackups();
    firstRun = !backups_.OfferAtFirstRun();
  }
  if (exiting_) return false;
  options_.Load(folder_);
  skins_.SetDefault(EffectiveOptions().skin);
  if (firstRun) ProvideFirstRun();
  log_.Open(folder_ + Text(kActivityLogName), CurrentOptions().debug);
  backups_.Open(folder_);
  if (!firstRun && !LoadJotlets()) return false;
  friends_.Open(folder_);
  options_.Save();
  RegisterHotKeys(Handle(), CurrentOptions(), log_);
  CheckBackup();
  sleeping_.Enable(true);
  WakeSleeping();
  SetTimer(Handle(), kMinuteTimer, kMinutePeriod, nullptr);
  SetTimer(Handle(), kSecondTimer, kSecondPeriod, nullptr);
  SetTimer(Handle(), kAnimationTimer, kAnimationPeriod, nullptr);
  SetDirty();
  Log(kLogLifecycle, u"Started Jotlets: '", kVersionText, u"'");
  ready_ = true;
  if (CurrentOptions().manageWindowVisible == 1) managed_.Dialog().OpenWindow(false);
  // The check may ask the user; it waits until the program is up.
  PostMessageW(Handle(), kCheckContentMessage, 0, 0);
  return true;
}

bool CMainFrame::FindDataFolder() {
  folder_ = jotlets::FindDataFolder(GatherDataFolderFacts(), files_);
  const FileStatus made = MakeDataFolders(files_, folder_);
  if (!made) {
    Tell(Handle(), resources_, IDS_SAVE_FAILED, folder_);
    return false;
  }
  desktop_.SetFolder(folder_);
  maker_.SetFolder(folder_);
  sleeping_.SetFolder(folder_);
  return true;
}

// The templates of new notes and a note that says hello.
void CMainFrame::ProvideFirstRun() {
  maker_.ProvideTemplates(resources_.Bytes(IDR_DEFAULT_RTF));
  installId_ = NewJotletId();
  saver_.SetFolder(folder_, installId_);
  NewJotlet welcome;
  welcome.reason = u"welcome";
  welcome.title = resources_.String(IDS_WELCOME_TITLE);
  welcome.text = resources_.String(IDS_WELCOME_TEXT);
  CreateJotlet(welcome);
}

bool CMainFrame::LoadJotlets() {
  LoadedData loaded = jotlets::LoadJotlets(
      {files_, ansi_, options_.Current(), [this] { return NewJotletId(); }, clock_.Now(), log_}, folder_);
  if (loaded.file.version > kDataFileVersion) {
    Tell(Handle(), resources_, IDS_NEWER_VERSION, folder_ + Text(kDataFileName));
    instance_.Release();
    return false;
  }
  TakeLoaded(std::move(loaded));
  return true;
}

void CMainFrame::TakeLoaded(LoadedData loaded) {
  installId_ = loaded.file.installId.empty() ? NewJotletId() : loaded.file.installId;
  saver_.SetFolder(folder_, installId_);
  if (loaded.MustNotBeReplaced()) saver_.KeepUnreadFile();
  const FileStatus friends = MoveFriends(files_, folder_, loaded.file.friendLines);
  if (!friends) Log(kLogLifecycle, u"Unable to write the friends file: ", friends.reason);
  const bool damaged = loaded.damaged;
  if (damaged) {
    tray_.Balloon(kVersionText, DescribeDamage(resources_, loaded));
    SetTimer(Handle(), kFlashTimer, kFlashPeriod, nullptr);
  }
  for (JotletData& record : lists_.Take(std::move(loaded.file))) {
    // Hidden in a stack that is lost, it would be out of reach.
    if (record.stack > 0 && lists_.FindStack(record.stack) == nullptr) record.hidden = false;
    if (maker_.OpenLoaded(record) != nullptr) continue;
    // Without a window it would be missing from the next save. Asleep, it is tried again.
    PutToSleep(record, clock_.Now().utc, {});
    lists_.sleeping.push_back(std::move(record));
  }
  stacks_.OpenAll();
  // At once: until then every start would find the same damage and keep one more copy of it.
  if (damaged) SaveJotlets();
  if (rescue_) RescueOffScreen();
  const bool hidden = CurrentOptions().hidden == 1;
  tray_.ShowHidden(hidden);
  if (hidden) return;
  desktop_.ShowAll();
  stacks_.ShowAll();
}

void CMainFrame::CheckContent() {
  std::vector<Orphan> orphans = CheckContentFiles(files_, folder_, lists_.ByKind(desktop_.Records()), log_);
  if (orphans.empty()) return;
  BOrphanDlg dialog(std::move(orphans));
  if (dialog.Show(resources_, IDD_ORPHANS, Handle()) != IDOK || exiting_) return;
  for (const Orphan& orphan : dialog.Chosen()) {
    NewJotlet adopted;
    adopted.reason = u"adopting";
    adopted.id = maker_.AdoptableId(orphan);
    adopted.isImage = orphan.isImage;
    // Meanwhile a command may have made a note of this name.
    if (!adopted.id.empty() && FindJotlet(adopted.id) == nullptr) CreateJotlet(adopted);
  }
}

// For a start that needs the backups before it may load: the options may name another place for them.
void CMainFrame::OpenBackups() {
  options_.Peek(folder_);
  backups_.Open(folder_);
}

}  // namespace jotlets

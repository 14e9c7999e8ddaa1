// The start of the program: from the empty window to notes on the desktop.
#include "app/win/hot_keys.h"
#include "app/win/program.h"
#include "app/win/registry_policy.h"
#include "app/win/system_facts.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "data/saving.h"
#include "res/resource.h"
#include "ui/screen.h"
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

}  // namespace

bool Program::Start(HWND window) {
  window_.SetHandle(window);
  RegisterClasses();
  tray_.Add(window, kTrayMessage);
  transport_.SetSender(window);
  policy_ = ReadPolicy(RegistryPolicy(), system_.log);
  if (!FindDataFolder()) return false;
  skins_.Open(desk_.Folder());
  FinishRestore();
  const bool firstRun = LoadOptions();
  if (state_.exiting) return false;
  if (firstRun) ProvideFirstRun();
  system_.log.Open(desk_.Folder() + Text(kActivityLogName), options_.Current().debug);
  backups_.Open(desk_.Folder());
  if (!firstRun && !LoadJotlets()) return false;
  friends_.Open(desk_.Folder());
  saving_.SaveOptions();
  RegisterHotKeys(window, options_.Current(), system_.log);
  if (backups_.BeginIfDue()) window_.Start(ProgramTimer::kBackup);
  sleeping_.Enable(true);
  sleeping_.WakeSleeping();
  for (const ProgramTimer timer : {ProgramTimer::kMinute, ProgramTimer::kSecond, ProgramTimer::kAnimation})
    window_.Start(timer);
  desk_.Changed();
  system_.log.Write(kLogLifecycle, u"Started Jotlets: '", kVersionText, u"'");
  state_.ready = true;
  if (options_.Current().manageWindowVisible == 1) managed_.Dialog().OpenWindow(false);
  // The check may ask the user; it waits until the program is up.
  window_.Post(kCheckContentMessage);
  return true;
}

void Program::RegisterClasses() {
  for (const wchar_t* name : {kJotletClass, kStackClass, kNoteShadowClass, kStackShadowClass}) {
    if (!Window::RegisterWindowClass(name, nullptr, CS_DBLCLKS))
      system_.log.Write(kLogLifecycle, LastErrorText(u"RegisterClassEx"));
  }
}

bool Program::FindDataFolder() {
  const Text folder = jotlets::FindDataFolder(GatherDataFolderFacts(), system_.files);
  desk_.SetFolder(folder, installId_);
  notes_.SetFolder(folder);
  if (MakeDataFolders(system_.files, folder)) return true;
  Tell(window_.Handle(), resources_, IDS_SAVE_FAILED, folder);
  return false;
}

void Program::FinishRestore() {
  if (RestoreUnderWay(system_.files, system_.ansi, desk_.Folder()).empty()) return;
  OpenBackups();
  backups_.FinishInterruptedRestore();
}

// Whether this is the first run: there is no data file, and the user has no backup put in its place.
bool Program::LoadOptions() {
  if (state_.exiting) return false;
  bool firstRun = !system_.files.Exists(desk_.Folder() + Text(kDataFileName));
  if (firstRun) {
    OpenBackups();
    firstRun = !backups_.OfferAtFirstRun();
  }
  if (state_.exiting) return firstRun;
  options_.Load(desk_.Folder());
  skins_.SetDefault(WithPolicy(options_.Current(), policy_).skin);
  return firstRun;
}

// The templates of new notes and a note that says hello.
void Program::ProvideFirstRun() {
  desk_.Maker().ProvideTemplates(resources_.Bytes(IDR_DEFAULT_RTF));
  installId_ = desk_.Maker().NewJotletId();
  desk_.SetFolder(Text(desk_.Folder()), installId_);
  NewNote welcome;
  welcome.reason = Reason::kWelcome;
  welcome.title = resources_.String(IDS_WELCOME_TITLE);
  welcome.text = resources_.String(IDS_WELCOME_TEXT);
  desk_.Create(welcome);
}

bool Program::LoadJotlets() {
  LoadedData loaded =
      jotlets::LoadJotlets({system_.files, system_.ansi, options_.Current(),
                            [this] { return desk_.Maker().NewJotletId(); }, system_.clock.Now(), system_.log},
                           desk_.Folder());
  if (loaded.file.version > kDataFileVersion) {
    Tell(window_.Handle(), resources_, IDS_NEWER_VERSION, desk_.Folder() + Text(kDataFileName));
    instance_.Release();
    return false;
  }
  installId_ = loaded.file.installId.empty() ? desk_.Maker().NewJotletId() : loaded.file.installId;
  desk_.SetFolder(Text(desk_.Folder()), installId_);
  if (loaded.MustNotBeReplaced()) desk_.Saver().KeepUnreadFile();
  const FileStatus friends = MoveFriends(system_.files, desk_.Folder(), loaded.file.friendLines);
  if (!friends) system_.log.Write(kLogLifecycle, u"Unable to write the friends file: ", friends.reason);
  TellDamage(loaded);
  const bool damaged = loaded.damaged;
  desk_.Load(std::move(loaded.file));
  stacks_.OpenAll();
  // At once: until then every start would find the same damage and keep one more copy of it.
  if (damaged) saving_.SaveJotlets();
  if (rescue_) trayCommands_.RescueOffScreen();
  const bool hidden = options_.Current().hidden == 1;
  tray_.ShowHidden(hidden);
  if (hidden) return true;
  notes_.ShowAll();
  stacks_.ShowAll();
  return true;
}

void Program::TellDamage(const LoadedData& loaded) {
  if (!loaded.damaged) return;
  tray_.Balloon(kVersionText, DescribeDamage(resources_, loaded));
  window_.Start(ProgramTimer::kFlash);
}

// For a start that needs the backups before it may load: the options may name another place for them.
void Program::OpenBackups() {
  options_.Peek(desk_.Folder());
  backups_.Open(desk_.Folder());
}

}  // namespace jotlets

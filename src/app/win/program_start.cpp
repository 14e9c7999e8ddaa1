// The start of the program: from the empty window to notes on the desktop.
#include "app/win/crash_report.h"
#include "app/win/first_look.h"
#include "app/win/program.h"
#include "app/win/registry_policy.h"
#include "app/win/system_facts.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "data/journal_replay.h"
#include "data/saving.h"
#include "editor/text_style.h"
#include "res/resource.h"
#include "ui/choice_dialog.h"
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
  transport_.SetSender(window, kClientAnswersMessage);
  policy_ = ReadPolicy(RegistryPolicy(), system_.log);
  if (!FindDataFolder()) return false;
  skins_.Open(desk_.Folder());
  // Where the backups are is an option, and they may have to replace the options before these are loaded.
  options_.Peek(desk_.Folder());
  backups_.Open(desk_.Folder());
  if (backups_.FinishInterruptedRestore()) claim_.SetJournalAside();
  const bool firstRun = LoadOptions();
  if (state_.exiting) return false;
  for (const Text& report : CollectCrashReports(system_.files, system_.log, desk_.Folder()))
    tray_.Balloon(kVersionText, ReplaceAll(resources_.String(IDS_CRASHED), u"%s", desk_.Folder() + report));
  friends_.Open(desk_.Folder());
  OpenStore();
  if (firstRun) ProvideFirstRun();
  if (!firstRun && !LoadJotlets()) return false;
  if (firstRun) WriteBack();
  hotKeys_.Register(window);
  if (backups_.BeginIfDue()) window_.Start(ProgramTimer::kBackup);
  sleeping_.Enable(true);
  sleeping_.WakeSleeping();
  for (const ProgramTimer timer : {ProgramTimer::kMinute, ProgramTimer::kSecond, ProgramTimer::kAnimation})
    window_.Start(timer);
  desk_.Changed();
  system_.log.Write(kLogLifecycle, u"Started Jotlets: '", kVersionText, u"'");
  state_.ready = true;
  search_.Start();
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

// A folder that the user has named and that is not there is not replaced in silence by an empty one.
bool Program::WaitForNamedFolder(const Text& folder) {
  while (IsFullPath(folder) && !system_.files.Exists(folder)) {
    const Text question = ReplaceAll(resources_.String(IDS_FOLDER_MISSING), u"%s", folder);
    const Choice choice = BChoiceDlg(IDD_FOLDER_MISSING, question).Ask(resources_, window_.Handle());
    if (state_.exiting || choice == Choice::kNeither) return false;
    if (choice == Choice::kSecond) return true;
  }
  return true;
}

bool Program::FindDataFolder() {
  const DataFolderFacts facts = GatherDataFolderFacts();
  if (!WaitForNamedFolder(NamedDataFolder(facts))) return false;
  const Text folder = jotlets::FindDataFolder(facts, system_.files);
  desk_.SetFolder(folder, installId_);
  notes_.SetFolder(folder);
  SetCrashFolder(folder);
  if (!MakeDataFolders(system_.files, folder)) {
    Tell(window_.Handle(), resources_, IDS_SAVE_FAILED, folder);
    return false;
  }
  if (claim_.Claim(folder)) {
    if (!claim_.JournalFault().empty())
      tray_.Balloon(kVersionText,
                    ReplaceAll(resources_.String(IDS_NO_JOURNAL), u"%s", claim_.JournalFault()));
    return true;
  }
  Tell(window_.Handle(), resources_, IDS_FOLDER_IN_USE, folder + u"\n\n" + claim_.User());
  return false;
}

// Whether this is the first run: there is no data file, and the user has no backup put in its place.
bool Program::LoadOptions() {
  if (state_.exiting) return false;
  bool firstRun =
      !system_.files.Exists(desk_.Folder() + Text(kDataFileName)) && !HoldsFirstNotes(claim_.JournalBytes());
  if (firstRun) {
    claim_.SetJournalAside();
    firstRun = !backups_.OfferAtFirstRun();
  }
  if (state_.exiting) return firstRun;
  options_.Load(desk_.Folder());
  // Without a file of their own, the options may be in an older data file: the level of the log too.
  if (firstRun || system_.files.Exists(desk_.Folder() + Text(kOptionsFileName))) ApplyOptions();
  // Without its data file a folder counts as new; what is left of its notes outlives that.
  if (firstRun) KeepCopies(system_.files, desk_.Folder(), system_.clock.Now().local, system_.log);
  return firstRun;
}

void Program::ApplyOptions() {
  system_.log.Open(desk_.Folder() + Text(kActivityLogName), options_.Current().debug);
  // Later, notes and windows are to follow with it.
  if (!state_.ready) theme_.Follow(options_.Current().appearance);
  skins_.SetDefault(WithPolicy(options_.Current(), policy_).skin);
  backups_.FollowOptions();
}

// What an older data file held of options and friends moves to their own files.
void Program::WriteBack() {
  const FileStatus friends = friends_.Save();
  if (!friends) system_.log.Write(kLogLifecycle, u"Unable to write the friends file: ", friends.reason);
  saving_.SaveOptions();
}

// The look of a fresh installation. Who brings options along keeps theirs.
void Program::ChooseFirstLook() {
  if (system_.files.Exists(desk_.Folder() + Text(kOptionsFileName))) return;
  SetFirstLook(options_.Current());
  ApplyOptions();
}

// The templates of new notes and a note that says hello.
void Program::ProvideFirstRun() {
  ChooseFirstLook();
  desk_.Maker().ProvideTemplates(resources_.Bytes(IDR_DEFAULT_RTF));
  if (options_.Current().styles.empty()) {
    std::array<Text, 6> names;
    for (UINT i = 0; i < names.size(); ++i) names[i] = resources_.String(IDS_STYLE_FIRST + i);
    options_.Current().styles = FirstTextStyles(names);
  }
  installId_ = desk_.Maker().NewJotletId();
  desk_.SetFolder(Text(desk_.Folder()), installId_);
  desk_.Journal().Reset(0);
  hotKeys_.Register(window_.Handle());  // the note names the one that holds
  NewNote welcome;
  welcome.reason = Reason::kWelcome;
  welcome.title = resources_.String(IDS_WELCOME_TITLE);
  welcome.text = resources_.String(IDS_WELCOME_TEXT) + u"\r\n\r\n" + hotKeys_.WelcomeWords();
  desk_.Create(welcome);
}

bool Program::LoadJotlets() {
  LoadedData loaded;
  Choice choice = Choice::kFirst;
  // What was typed last must not be written over by what is typed on an older text.
  do {
    loaded = jotlets::LoadJotlets(
        {system_.files, system_.ansi, options_.Current(), [this] { return desk_.Maker().NewJotletId(); },
         system_.clock.Now(), system_.log},
        desk_.Folder(), claim_.JournalBytes());
    if (loaded.journal.unwritten.empty()) break;
    const Text question =
        ReplaceAll(resources_.String(IDS_JOURNAL_UNWRITTEN), u"%s", loaded.journal.unwritten);
    choice = BChoiceDlg(IDD_JOURNAL_UNWRITTEN, question).Ask(resources_, window_.Handle());
  } while (choice == Choice::kFirst && !state_.exiting);
  ApplyOptions();
  const bool newer = loaded.file.version > kDataFileVersion;
  if (newer || choice == Choice::kNeither || state_.exiting) {
    claim_.LeaveUntouched();
    store_.Close();
    if (newer) Tell(window_.Handle(), resources_, IDS_NEWER_VERSION, desk_.Folder() + Text(kDataFileName));
    instance_.Release();
    return false;
  }
  RescueStore();
  if (state_.exiting) return false;
  installId_ = loaded.file.installId.empty() ? desk_.Maker().NewJotletId() : loaded.file.installId;
  desk_.SetFolder(Text(desk_.Folder()), installId_);
  if (loaded.MustNotBeReplaced()) desk_.Saver().KeepUnreadFile();
  friends_.Merge(loaded.file.friendLines);
  WriteBack();
  TellDamage(loaded);
  desk_.Load(std::move(loaded.file));
  stacks_.OpenAll();
  claim_.GoOn(desk_.Journal(), loaded);
  for (const JotletData& gone : loaded.journal.gone)
    if (!store_.Has(gone.id)) desk_.Saver().RemoveContentLater(gone);
  // At once: until then every start would find the same damage, or the same news in the journal, again.
  if (loaded.damaged || loaded.journal.any) saving_.SaveJotlets();
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

}  // namespace jotlets

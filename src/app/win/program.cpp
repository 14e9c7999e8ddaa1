#include "app/win/program.h"

#include "app/win/data_location.h"
#include "app/win/system_facts.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "desk/win/note_keys.h"
#include "desk/win/orphan_dialog.h"
#include "res/resource.h"
#include "ui/user_messages.h"

namespace jotlets {
namespace {

constexpr int kSafetyCopyMinutes = 60;

}  // namespace

Program::Program(const Resources& resources, Theme& theme, ProgramInstance& instance, bool rescue)
    : resources_(resources),
      theme_(theme),
      instance_(instance),
      rescue_(rescue),
      options_(system_.files, system_.ansi, system_.clock, system_.log),
      transport_(system_.ansi),
      clientLines_(transport_, system_.log),
      listeners_(clientLines_),
      skins_(resources, system_.files, system_.ansi, system_.log),
      claim_(system_.files, system_.ansi, system_.clock, system_.log),
      notes_(*this, listeners_, resources, system_.files, system_.clock, system_.log, options_.Current(),
             skins_, claim_.Trials()),
      store_(system_.files, system_.log),
      desk_({system_.files, system_.clock, system_.log, options_.Current(), notes_, claim_.Journal(),
             listeners_, store_, [this] { OnDeskChanged(); }, InstanceNumber()}),
      stacks_(*this, resources, system_.log, desk_, notes_),
      attached_(desk_, notes_, options_.Current(), system_.clock, foreign_),
      signs_(options_.Current(), system_.clock, system_.log),
      sleeping_(desk_, notes_, system_.files, system_.clock, system_.log, options_.Current(), signs_),
      friends_(system_.files, system_.ansi, system_.clock, system_.log),
      contents_(system_.files, system_.ansi, system_.clock, system_.log, desk_, notes_),
      saving_(resources, system_.files, system_.log, window_, state_, options_, desk_),
      search_(system_.files, system_.clock, system_.log, window_, desk_),
      tray_(resources, resources.String(IDS_TOOLTIP)),
      hotKeys_(resources, options_.Current(), system_.log, tray_),
      keys_(resources, hotKeys_),
      backups_(*this, resources, system_.files, system_.ansi, system_.clock, system_.log, options_.Current()),
      skinCommands_(resources, system_.files, system_.log, options_, policy_, skins_, notes_, stacks_,
                    saving_, tray_),
      managed_(resources, system_.clock, options_.Current(), desk_, notes_, stacks_, sleeping_, contents_,
               store_, search_.Browser(), system_.files, saving_, window_, state_, previewed_),
      found_(resources, desk_, notes_, managed_, search_),
      optionCommands_({resources, system_.files, system_.log, options_, policy_, skins_, saving_, backups_,
                       desk_, [this](UINT command) { trayCommands_.Do(command); },
                       [this](const Options& before) { FollowOptions(before); },
                       [this](bool held) { HoldHotKeys(held); }}),
      undo_(resources, options_.Current(), desk_, managed_),
      trayCommands_({resources, system_.files, system_.ansi, system_.log, options_.Current(), desk_,
                     notes_,    stacks_,       managed_,     found_,      optionCommands_,    friends_,
                     saving_,   tray_,         hotKeys_,     keys_,       backups_,           listeners_,
                     menus_,    window_,       state_,       *this}),
      pictures_(resources, options_.Current(), desk_, notes_, contents_, saving_, undo_, pictureJobs_),
      noteCommands_({resources, system_.clock, system_.log, options_.Current(), desk_, notes_, stacks_,
                     attached_, foreign_.Front(), contents_, skinCommands_, saving_, trayCommands_,
                     storeCommands_, undo_, listeners_, menus_, window_, state_}),
      commands_(
          {options_.Current(), desk_, notes_, contents_, skinCommands_, window_},
          {system_.ansi, system_.clock, system_.log, system_.files, friends_, sleeping_, store_, search_,
           saving_, managed_, trayCommands_, tray_, listeners_, clientLines_, menus_, installId_}) {
  ServeManaging();
}

Program::~Program() = default;

void Program::OnTimer(ProgramTimer timer) {
  if (state_.exiting || !state_.ready) return;
  switch (timer) {
    case ProgramTimer::kSave:
      window_.Stop(timer);
      saving_.SaveIfDirty();
      break;
    case ProgramTimer::kOptions:
      window_.Stop(timer);
      saving_.SaveOptions();
      break;
    case ProgramTimer::kMinute: OnMinute(); break;
    case ProgramTimer::kSecond: OnSecond(); break;
    case ProgramTimer::kFlash: tray_.Flash(); break;
    case ProgramTimer::kAnimation:
      // Sixty wakes a second are what an idle program costs.
      if (!notes_.Animate()) window_.Stop(timer);
      break;
    case ProgramTimer::kBackup:
      if (!backups_.Step()) window_.Stop(timer);
      break;
    case ProgramTimer::kJournal: saving_.WriteJournal(); break;
    case ProgramTimer::kSearch: search_.Feed(); break;
  }
}

void Program::OnMessage(ProgramMessage message, LPARAM detail) {
  switch (message) {
    case kTrayMessage: trayCommands_.OnTray(static_cast<UINT>(detail)); break;
    case kPurgeMessage:
      notes_.Purge();
      stacks_.Purge();
      break;
    case kRefreshStacksMessage: stacks_.Refresh(); break;
    case kCheckContentMessage: CheckContent(); break;
    case kJournalMessage:
      if (state_.ready && !state_.exiting) saving_.WriteJournal();
      break;
    case kUnknownHeightMessage: TellUnknownHeight(); break;
    case kPictureMessage: pictureJobs_.Deliver(); break;
    case kSearchMessage:
      if (!state_.ready || state_.exiting) break;
      search_.OnNews();
      if (search_.FoundDamagedStore()) OnStoreDamaged();
      if (auto report = search_.CheckedContents()) OnContentsChecked(std::move(*report));
      break;
    case kClientAnswersMessage: clientLines_.OnAnswers(static_cast<ClientWindow>(detail)); break;
  }
}

bool Program::TranslateNoteKey(const MSG& message) {
  return !state_.exiting && (undo_.ServeKey(message, notes_) || ServeNoteKey(notes_, message));
}

void Program::FollowMonitors() {
  if (!state_.ready) return;
  notes_.FollowMonitors();
  stacks_.FollowMonitors();
}

void Program::FollowLook() {
  if (state_.exiting || !theme_.Follow(options_.Current().appearance) || !state_.ready) return;
  notes_.RefreshSkins();
  stacks_.RefreshSkins();
  notes_.FollowOptions();
  stacks_.FollowOptions();
  TellThemeChanged();
}

void Program::OnMinute() {
  friends_.SaveIfDirty();
  if (++minutes_ % kSafetyCopyMinutes == 0) saving_.SaveCopy(desk_.Folder() + Text(kSafetyCopyName));
  if (backups_.BeginIfDue()) window_.Start(ProgramTimer::kBackup);
}

void Program::OnSecond() {
  notes_.Purge();
  stacks_.Purge();
  // Not every change of the monitors is announced.
  FollowMonitors();
  sleeping_.WakeSleeping();
  sleeping_.CheckAlarms();
  attached_.Pass();
  ++secondsRun_;
}

// Whatever changed may show in the list of a stack, or in the manage window.
void Program::OnDeskChanged() {
  if (state_.exiting || desk_.Folder().empty()) return;
  saving_.OnChanged();
  search_.OnChanged();
  stacks_.RefreshSoon();
  managed_.Dialog().RefreshSoon();
}

// One box, however many notes it is about.
void Program::TellUnknownHeight() {
  if (tellingHeight_ || state_.exiting) return;
  tellingHeight_ = true;
  Tell(window_.Handle(), resources_, IDS_UNKNOWN_HEIGHT, {});
  tellingHeight_ = false;
}

void Program::OnAnimationClosed(const Text& id, bool deletes) {
  if (deletes) {
    desk_.Delete(id, Reason::kEndOfTrans);
  } else {
    desk_.Close(id, Reason::kEndOfTrans);
  }
}

void Program::OnExitKey() {
  BJotlet* note = notes_.FindWindowOwner(GetFocus());
  if (note == nullptr || options_.Current().altF4Leaves || state_.exiting)
    return trayCommands_.Do(ID_EXIT_JOTLETS);
  noteCommands_.LeaveOrClose(*note);
}

void Program::OnNoteDropped(BJotlet& jotlet, bool shift) {
  const BManageDlg& manage = managed_.Dialog();
  const bool stores = shift && IsUnderMouse(manage.Window(), jotlet.Handle());
  stacks_.OnNoteDropped(jotlet, shift && !stores);
  if (stores) storeCommands_.Store(jotlet, manage.CategoryUnderMouse());
}

void Program::OnNoteHidden(const BJotlet& jotlet) {
  // Notes that a stack gathers in are to be seen there.
  if (desk_.Lists().FindStack(jotlet.StoredRecord().stack) != nullptr) return;
  undo_.Offer(UndoKind::kHidden, {jotlet.StoredRecord().id}, jotlet.Bounds());
}

void Program::CheckContent() {
  if (state_.ready && !state_.exiting) search_.CheckContents();
}

void Program::OnContentsChecked(ContentJob::Report report) {
  // Nothing is being written now: what is still there was cut off by a kill.
  for (const Text& path : report.leftovers) system_.files.Remove(path);
  for (const Text& missing : report.missing) system_.log.Write(kLogLifecycle, missing);
  // Notes have come and gone meanwhile.
  std::vector<Orphan> orphans = std::move(report.orphans);
  std::erase_if(orphans, [this](const Orphan& orphan) {
    JotletData named;
    named.id = orphan.id;
    named.isImage = orphan.isImage ? 1 : 0;
    return desk_.Lists().WhereIs(orphan.id) || store_.Has(orphan.id) ||
           !system_.files.Exists(desk_.Folder() + ContentPath(named));
  });
  if (orphans.empty() || state_.exiting) return;
  BOrphanDlg dialog(std::move(orphans));
  if (dialog.Show(resources_, IDD_ORPHANS, window_.Handle()) != IDOK || state_.exiting) return;
  for (const Orphan& orphan : dialog.Chosen()) {
    NewNote adopted;
    adopted.reason = Reason::kAdopting;
    adopted.id = desk_.Maker().AdoptableId(orphan);
    adopted.isImage = orphan.isImage;
    // Meanwhile a command may have made a note of this name.
    if (!adopted.id.empty() && !desk_.Lists().WhereIs(adopted.id)) desk_.Create(adopted);
  }
}

FileStatus Program::MoveDataTo(TextView folder) {
  undo_.Forget();
  // Everything that is in memory goes along.
  saving_.SaveOptions();
  if (!saving_.SaveJotlets()) return FileStatus::Failed(saving_.MainPath());
  // A file that is open can be neither moved nor replaced.
  store_.Close();
  search_.Stop();
  FileStatus moved = MoveData(system_.files, system_.log, desk_.Folder(), folder);
  if (moved) {
    Restart();
  } else {
    OpenStore();
    search_.Start();
  }
  return moved;
}

// While the files are being replaced, what is on the screen must neither change nor be written.
void Program::HoldStill(bool still) {
  undo_.Forget();
  if (still) listeners_.Send({EventKind::kRestoring});
  state_.exiting = still;
  notes_.Enable(!still);
  sleeping_.Enable(!still);
  stacks_.Enable(!still);
  EnableWindow(managed_.Dialog().Window(), !still);
  optionCommands_.Dialog().Enable(!still);
  // The search reads the store: it ends first and begins last.
  if (state_.ready && still) search_.Stop();
  still ? store_.Close() : OpenStore();
  if (state_.ready && !still) search_.Start();
  // What was not saved before is tried again.
  if (!still) desk_.Changed();
}

// What is not asked of the options each time anew.
void Program::FollowOptions(const Options& before) {
  const Options& now = options_.Current();
  ApplyOptions();
  FollowLook();
  hotKeys_.Register(window_.Handle());
  if (WithPolicy(now, policy_).skin != WithPolicy(before, policy_).skin) {
    notes_.RefreshSkins();
    stacks_.RefreshSkins();
  }
  notes_.FollowOptions();
  stacks_.FollowOptions();
}

void Program::HoldHotKeys(bool held) {
  hotKeys_.Unregister(window_.Handle());
  if (!held && !state_.exiting) hotKeys_.Register(window_.Handle());
}

// The data has been replaced or moved: a new start of the program loads it.
void Program::Restart() {
  state_.exiting = true;
  search_.Stop();
  tray_.Remove();
  claim_.Release();
  instance_.Restart(system_.log);
}

// Saves; without the user's leave nothing that is not saved is given up.
bool Program::MayExit(bool silent) {
  undo_.Forget();
  sleeping_.Enable(false);
  notes_.StopAlarms();
  hotKeys_.Unregister(window_.Handle());
  saving_.SaveOptionsIfDirty();
  friends_.SaveIfDirty();
  if (silent) {
    saving_.SaveAtEndOfSession();
    return true;
  }
  if (saving_.SaveAtExit()) return true;
  hotKeys_.Register(window_.Handle());
  sleeping_.Enable(true);
  state_.exiting = false;
  desk_.Changed();
  return false;
}

// Told to whoever waits for the session to end.
void Program::OnSessionEnding() {
  if (state_.ready && desk_.Saver().IsDirty())
    ShutdownBlockReasonCreate(window_.Handle(), Wide(resources_.String(IDS_SAVING)));
}

void Program::OnSessionEnded(bool ended) {
  const HWND window = window_.Handle();
  if (ended) ExitJotlets(u"end of session", true);
  ShutdownBlockReasonDestroy(window);
}

void Program::ExitJotlets(TextView reason, bool silent) {
  if (state_.exiting) return;
  state_.exiting = true;
  if (!state_.ready) {
    // Asked to end while a box of the start is open: nothing is loaded, and nothing may be saved.
    state_.notesGone = true;
    PostQuitMessage(0);
    return;
  }
  managed_.Dialog().SaveText();
  if (!MayExit(silent)) return;
  state_.ready = false;
  search_.Stop();
  backups_.Abandon();
  managed_.Dialog().CloseForExit();
  found_.Dialog().CloseForExit();
  optionCommands_.Dialog().CloseForExit();
  keys_.CloseForExit();
  saving_.SaveCopy(desk_.Folder() + Text(kExitCopyName));
  state_.notesGone = true;
  // The windows of many notes take their time to go: at the end of the session they go with the process.
  if (!silent) {
    desk_.CloseAll();
    stacks_.CloseAll();
  }
  listeners_.Send({EventKind::kExiting});
  tray_.Remove();
  store_.Close();
  claim_.Leave();
  system_.log.Write(kLogLifecycle, u"Jotlets closed. Ran for ", secondsRun_, u" seconds (", reason, u")");
  PostQuitMessage(0);
  DestroyWindow(window_.Handle());
}

}  // namespace jotlets

#include "desk/note_desk.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "data/content_files.h"
#include "schedule/recurrence.h"

namespace jotlets {
namespace {

// What a new note begins with, in the place of its template.
void Fill(NoteContent& content, const NewNote& fresh) {
  if (!fresh.rtf.empty()) {
    content.SetRichText(fresh.rtf);
  } else if (!fresh.text.empty()) {
    content.SetPlainText(fresh.text);
  }
}

// Those of the ids that a list has, in its order.
std::vector<Text> InOrder(const RecordList& list, const std::vector<Text>& ids) {
  std::unordered_set<Text> wanted;
  for (const Text& id : ids) wanted.insert(FoldCase(id));
  std::vector<Text> present;
  for (const JotletData& record : list) {
    if (wanted.contains(FoldCase(record.id))) present.push_back(record.id);
  }
  return present;
}

// A record comes to the desktop as a plain note that is seen.
void Awaken(JotletData& record) {
  record.sleep.asleep = false;
  record.sleep.recurring = false;
  record.hidden = false;
  record.deletedTime = kNotSet;
}

}  // namespace

NoteDesk::NoteDesk(DeskContext context)
    : context_(std::move(context)),
      maker_(context_.files, context_.clock, context_.log, context_.options, lists_, context_.windows,
             context_.store, context_.instance),
      journal_(context_.journal, context_.files, context_.log, context_.options, lists_, context_.windows),
      saver_(context_.files, context_.clock, context_.log, context_.options, lists_, context_.windows,
             journal_),
      recorder_(lists_, context_.windows, context_.store) {}

void NoteDesk::SetFolder(TextView dataFolder, TextView installId) {
  folder_ = dataFolder;
  maker_.SetFolder(dataFolder);
  journal_.SetFolder(dataFolder, installId);
  saver_.SetFolder(dataFolder, installId);
}

void NoteDesk::Load(DataFile file) {
  SettleStore(file);
  lists_.verbatim = std::move(file.verbatim);
  lists_.stacks = std::move(file.stacks);
  for (FiledJotlet& jotlet : file.deleted) lists_.closed.push_back(std::move(jotlet.record));
  for (FiledJotlet& jotlet : file.jotlets) {
    JotletData& record = jotlet.record;
    if (record.sleep.asleep) {
      lists_.sleeping.push_back(std::move(record));
    } else if (record.IsAttached()) {
      lists_.attached.push_back(std::move(record));
    } else {
      // Hidden in a stack that is lost, it would be out of reach.
      if (record.stack > 0 && lists_.FindStack(record.stack) == nullptr) record.hidden = false;
      if (OpenWindow(record)) continue;
      // Without a window it would be missing from the next save.
      PutToSleep(record, context_.clock.Now().utc, {});
      lists_.sleeping.push_back(std::move(record));
    }
  }
  journal_.ForgetChanges();
}

void NoteDesk::Changed() {
  saver_.SetDirty();
  context_.changed();
}

void NoteDesk::Changed(TextView id) {
  lists_.desktop.MarkChanged(id);
  Changed();
}

RecordList& NoteDesk::ListOf(NoteList list) {
  return list == NoteList::kSleeping   ? lists_.sleeping
         : list == NoteList::kAttached ? lists_.attached
                                       : lists_.closed;
}

// Makes the window first: as long as there is none, the note is where it was.
bool NoteDesk::OpenWindow(JotletData record) {
  // Two notes of one id would share a content file.
  if (lists_.desktop.Find(record.id) != nullptr) return false;
  maker_.Complete(record);
  auto shared = std::make_shared<JotletData>(std::move(record));
  if (!context_.windows.Open(shared)) return false;
  lists_.desktop.Add(std::move(shared));
  return true;
}

bool NoteDesk::ToDesktop(NoteList from, TextView id, const Change& change) {
  const JotletData* before = std::as_const(ListOf(from)).Find(id);
  if (before == nullptr) return false;
  JotletData record = *before;
  change(record);
  const Text own = record.id;
  if (!OpenWindow(std::move(record))) return false;
  ListOf(from).Remove(own);
  return true;
}

std::optional<std::vector<Text>> NoteDesk::FromDesktop(TextView id, NoteList to, const Change& change) {
  // What could not be written would be gone.
  if (!SaveContent(id)) return std::nullopt;
  const Text own = lists_.desktop.Find(id)->id;
  context_.windows.Sync(own);
  JotletData record = *lists_.desktop.Remove(own);
  change(record);
  std::vector<Text> dropped;
  if (to == NoteList::kClosed) {
    dropped = EnterClosed(std::move(record), Now());
  } else {
    ListOf(to).push_back(std::move(record));
  }
  context_.windows.Close(own);
  Changed();
  return dropped;
}

std::vector<Text> NoteDesk::EnterClosed(JotletData record, std::int32_t closedAt) {
  record.deletedTime = closedAt;
  lists_.closed.push_front(std::move(record));
  std::vector<Text> dropped;
  const auto maximum = static_cast<std::size_t>(std::max(context_.options.keepDeleted, 0));
  while (lists_.closed.size() > maximum) {
    const Text oldest = lists_.closed.back().id;
    const std::optional<JotletData> gone = lists_.closed.Remove(oldest);
    if (!gone) break;
    saver_.RemoveContentLater(*gone);
    dropped.push_back(oldest);
  }
  return dropped;
}

void NoteDesk::TellDropped(const std::vector<Text>& dropped) {
  for (const Text& id : dropped)
    context_.events.Send({EventKind::kDeletedClosed, Reason::kNotGiven, {id}, {}});
}

void NoteDesk::TellCreated(const Text& id, Reason reason) {
  context_.log.Write(kLogDetail, u"Created (", WordOf(reason), u") ", id);
  Changed();
  context_.events.Send({EventKind::kCreated, reason, {id}, {}});
}

void NoteDesk::Show(TextView id, Showing showing) {
  const JotletData* record = lists_.desktop.Find(id);
  if (record != nullptr && !record->hidden && context_.options.hidden != 1)
    context_.windows.Show(id, showing);
}

bool NoteDesk::SaveContent(TextView id) {
  if (lists_.desktop.Find(id) == nullptr) return false;
  journal_.BeforeContents({Text(id)});
  const FileStatus saved = context_.windows.SaveContent(id);
  if (!saved)
    context_.log.Write(kLogLifecycle, u"Unable to save the content of jotlet ", id, u": ", saved.reason);
  return saved.ok;
}

Text NoteDesk::Create(const NewNote& fresh) {
  std::optional<JotletData> record = maker_.Make(fresh);
  if (!record) return {};
  Text id = record->id;
  if (!OpenWindow(std::move(*record))) return {};
  NoteContent& content = context_.windows.ContentOf(id);
  Fill(content, fresh);
  // Rich text, and a text that was there before, look as they do.
  if (fresh.rtf.empty() && fresh.id.empty()) context_.windows.StyleNewText(id);
  if (fresh.fromClipboard) content.Paste(!fresh.plainClipboard);
  Show(id, Showing::kQuietly);
  TellCreated(id, fresh.reason);
  return id;
}

bool NoteDesk::CreateCopy(const JotletData& source, const WakeFlags& flags) {
  JotletData copy = source;
  copy.id = maker_.NewJotletId();
  copy.fromRecurring = source.id;
  copy.sleep.asleep = copy.sleep.recurring = false;
  const Text id = copy.id;
  const FileStatus copied =
      CopyContentFile(context_.files, folder_ + ContentPath(source), folder_ + ContentPath(copy));
  if (!copied) {
    context_.log.Write(kLogLifecycle, u"Unable to copy the content of jotlet ", source.id, u": ",
                       copied.reason);
  }
  const JotletData named = copy;
  if (!OpenWindow(std::move(copy))) {
    saver_.RemoveContentLater(named);
    return false;
  }
  FinishWaking(id, Reason::kRecurring, flags);
  return true;
}

Text NoteDesk::Admit(TextView encoded, bool asleep, Reason reason) {
  std::optional<AdmittedNote> note = AdmitEncodedNote(
      {context_.files, context_.log, folder_, maker_.Blank({}), [this] { return maker_.NewJotletId(); },
       [this](TextView id) { return maker_.IsTaken(id); }},
      encoded, asleep);
  if (!note) return {};
  Text id = note->record.id;
  if (note->list == NoteList::kDesktop) {
    if (!OpenWindow(std::move(note->record))) return {};
    Show(id, Showing::kQuietly);
    TellCreated(id, reason);
    return id;
  }
  std::vector<Text> dropped;
  if (note->list == NoteList::kClosed) {
    const std::int32_t closedAt = note->record.deletedTime;
    dropped = EnterClosed(std::move(note->record), closedAt);
  } else {
    ListOf(note->list).push_back(std::move(note->record));
  }
  Changed();
  TellDropped(dropped);
  return id;
}

bool NoteDesk::Close(TextView id, Reason reason) {
  const JotletData* record = lists_.desktop.Find(id);
  if (record == nullptr) return false;
  const Text own = record->id;
  const auto dropped = FromDesktop(own, NoteList::kClosed, [](JotletData&) {});
  if (!dropped) return false;
  context_.events.Send({EventKind::kClosed, reason, {own}, {}});
  TellDropped(*dropped);
  return true;
}

std::vector<Text> NoteDesk::CloseWaiting(const std::vector<Text>& ids) {
  std::vector<Text> closed;
  std::vector<Text> dropped;
  for (const Text& id : ids) {
    std::optional<JotletData> record = lists_.sleeping.Remove(id);
    if (!record) record = lists_.attached.Remove(id);
    if (!record) continue;
    closed.push_back(record->id);
    for (Text& oldest : EnterClosed(std::move(*record), Now())) dropped.push_back(std::move(oldest));
  }
  Changed();
  TellDropped(dropped);
  return closed;
}

bool NoteDesk::Delete(TextView id, Reason reason) {
  const JotletData* record = lists_.desktop.Find(id);
  if (record == nullptr) return false;
  const Text own = record->id;
  context_.events.Send({EventKind::kDeleted, reason, {own}, {}});
  // A listener may have deleted it from inside the event.
  const std::shared_ptr<JotletData> gone = lists_.desktop.Remove(own);
  if (gone == nullptr) return false;
  saver_.RemoveContentLater(*gone);
  context_.windows.Close(own);
  Changed();
  return true;
}

bool NoteDesk::Discard(TextView id, Reason reason) {
  if (!SaveContent(id)) return false;
  const Text own = lists_.desktop.Find(id)->id;
  context_.windows.Sync(own);
  context_.events.Send({EventKind::kDeleted, reason, {own}, {}});
  // As for one that is deleted at once.
  const std::shared_ptr<JotletData> gone = lists_.desktop.Remove(own);
  if (gone == nullptr) return false;
  lists_.discarded.Remove(own);
  lists_.discarded.push_back(*gone);
  while (lists_.discarded.size() > kKeptDiscarded) ForgetDiscarded(Text(lists_.discarded.begin()->id));
  context_.windows.Close(own);
  Changed();
  return true;
}

bool NoteDesk::Undelete(TextView id) {
  const JotletData* kept = std::as_const(lists_.discarded).Find(id);
  // Another note may have come under its id.
  if (kept == nullptr || lists_.WhereIs(id)) return false;
  JotletData record = *kept;
  const Text own = record.id;
  if (!OpenWindow(std::move(record))) return false;
  lists_.discarded.Remove(own);
  Changed();
  Show(own, Showing::kWithFocus);
  TellCreated(own, Reason::kRestored);
  return true;
}

void NoteDesk::ForgetDiscarded(TextView id) {
  const std::optional<JotletData> gone = lists_.discarded.Remove(id);
  if (gone && !lists_.WhereIs(gone->id)) saver_.RemoveContentLater(*gone);
}

void NoteDesk::ForgetDiscarded() {
  if (lists_.discarded.empty()) return;
  for (const Text& id : IdsOf(lists_.discarded)) ForgetDiscarded(id);
  Changed();
}

void NoteDesk::DeleteClosed(const std::vector<Text>& ids) {
  const std::vector<Text> present = InOrder(lists_.closed, ids);
  for (const Text& id : present) saver_.RemoveContentLater(*lists_.closed.Remove(id));
  Changed();
  TellDropped(present);
}

// Nobody is told before all of them are where they belong: whoever hears of it may make the program save or
// end.
std::size_t NoteDesk::ManyToDesktop(NoteList from, const std::vector<Text>& ids, Reason reason,
                                    const Change& change) {
  const std::vector<Text> present = InOrder(ListOf(from), ids);
  std::vector<Text> opened;
  for (const Text& id : present) {
    if (ToDesktop(from, id, change)) opened.push_back(id);
  }
  const Showing showing = present.size() == 1 ? Showing::kWithFocus : Showing::kQuietly;
  Changed();
  for (const Text& id : opened) Show(id, showing);
  for (const Text& id : opened) TellCreated(id, reason);
  return ids.size() - opened.size();
}

std::size_t NoteDesk::Restore(const std::vector<Text>& ids) {
  return ManyToDesktop(NoteList::kClosed, ids, Reason::kRestored, Awaken);
}

std::size_t NoteDesk::BringBack(const std::vector<Text>& ids, NoteList to) {
  const std::vector<Text> present = InOrder(lists_.closed, ids);
  for (const Text& id : present) {
    JotletData record = *lists_.closed.Remove(id);
    record.deletedTime = kNotSet;
    ListOf(to).push_back(std::move(record));
  }
  Changed();
  return ids.size() - present.size();
}

Renamed NoteDesk::Rename(TextView id, TextView newId) {
  const JotletData* record = lists_.desktop.Find(id);
  if (record == nullptr || !IsAddressableId(newId)) return Renamed::kNoName;
  const bool otherLetters = !EqualIgnoreCase(id, newId);
  if (otherLetters && maker_.IsTaken(newId)) return Renamed::kTaken;
  if (otherLetters) {
    // The data file on disk names the old content until the next save, the one in memory the new.
    if (!SaveContent(id)) return Renamed::kFailed;
    const JotletData before = *record;
    JotletData after = before;
    after.id = newId;
    const FileStatus copied =
        CopyContentFile(context_.files, folder_ + ContentPath(before), folder_ + ContentPath(after));
    if (!copied && context_.files.Exists(folder_ + ContentPath(before))) {
      context_.log.Write(kLogLifecycle, u"Unable to rename jotlet ", before.id, u": ", copied.reason);
      return Renamed::kFailed;
    }
    saver_.RemoveContentLater(before);
  }
  context_.windows.Rename(Text(id), newId);
  lists_.desktop.Rename(Text(id), newId);
  Changed();
  return Renamed::kYes;
}

void NoteDesk::CloseAll() {
  for (const Text& id : IdsOf(lists_.desktop))
    context_.events.Send({EventKind::kClosed, Reason::kAppExit, {id}, {}});
  for (const Text& id : IdsOf(lists_.desktop)) {
    lists_.desktop.Remove(id);
    context_.windows.Close(id);
  }
}

}  // namespace jotlets

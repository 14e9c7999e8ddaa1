// The desk's moves into the store and out of it.
#include <unordered_set>
#include <utility>

#include "data/data_folder.h"
#include "data/rtf_bounds.h"
#include "data/rtf_bytes.h"
#include "desk/note_desk.h"

namespace jotlets {

// A note that was on its way into the store or out of it when the program ended is in both: it goes on to
// where it was to go.
void NoteDesk::SettleStore(DataFile& file) {
  if (!context_.store.IsOpen()) return;
  std::unordered_set<Text> listed;
  for (const auto* jotlets : {&file.jotlets, &file.deleted})
    for (const FiledJotlet& jotlet : *jotlets) listed.insert(FoldCase(jotlet.record.id));
  context_.store.Settle([&listed](TextView id) { return listed.contains(FoldCase(id)); });
  const auto isStored = [this](const FiledJotlet& jotlet) { return context_.store.Has(jotlet.record.id); };
  std::erase_if(file.jotlets, isStored);
  std::erase_if(file.deleted, isStored);
}

// In the store first: whatever happens then, the note is in one of the two at least.
std::optional<std::int64_t> NoteDesk::Store(TextView id, TextView category) {
  if (!SaveContent(id)) return std::nullopt;
  context_.store.EndChange();
  const Text own = lists_.desktop.Find(id)->id;
  context_.windows.Sync(own);
  const std::optional<std::int64_t> key = context_.store.Put(*lists_.desktop.Find(own), category);
  if (!key) return std::nullopt;
  lists_.desktop.Remove(own);
  context_.windows.Close(own);
  Changed();
  context_.events.Send({EventKind::kDeleted, Reason::kStored, {own}, {}});
  return key;
}

std::optional<std::int64_t> NoteDesk::CreateStored(NewNote fresh, TextView category) {
  fresh.content = fresh.rtf.empty() ? RtfOfPlainText(fresh.text) : RtfBytes(fresh.rtf);
  const std::optional<JotletData> record = maker_.Make(fresh);
  if (!record) return std::nullopt;
  const std::optional<std::int64_t> key = context_.store.Put(*record, category);
  if (!key) context_.files.Remove(folder_ + ContentPath(*record));
  return key;
}

Text NoteDesk::Fetch(std::int64_t key) {
  context_.store.EndChange();
  std::optional<StoredNote> note = context_.store.Find(key);
  if (!note || note->record.id.empty() || lists_.WhereIs(note->record.id)) return {};
  if (!context_.store.MarkLeaving(key, true)) return {};
  const Text id = note->record.id;
  if (!OpenWindow(std::move(note->record))) {
    context_.store.MarkLeaving(key, false);
    return {};
  }
  // Only what is on the disk elsewhere leaves the store.
  journal_.WriteChanges([] { return true; });
  if (journal_.Flush()) context_.store.Remove(key);
  Changed();
  Show(id, Showing::kWithFocus);
  TellCreated(id, Reason::kRestored);
  return id;
}

std::optional<JotletData> NoteDesk::RecordOf(TextView id) const {
  if (const JotletData* record = lists_.FindRecord(id)) return *record;
  const std::optional<std::int64_t> key = context_.store.KeyOf(id);
  const std::optional<StoredNote> note = key ? context_.store.Find(*key) : std::nullopt;
  return note ? std::optional(note->record) : std::nullopt;
}

Text NoteDesk::CreatePicture(const JotletData& source, std::string png) {
  NewNote fresh;
  fresh.isImage = true;
  fresh.content = std::move(png);
  const std::optional<JotletData> made = maker_.Make(fresh);
  if (!made) return {};
  JotletData record = source;
  record.id = made->id;
  record.isImage = made->isImage;
  record.scroll = {};
  if (!OpenWindow(std::move(record))) {
    saver_.RemoveContentLater(*made);
    return {};
  }
  Show(made->id, Showing::kQuietly);
  TellCreated(made->id, Reason::kUser);
  return made->id;
}

// The content first: a time of change that is too old harms nobody.
bool NoteDesk::ChangeText(TextView id, std::string_view rtf) {
  std::optional<JotletData> record = RecordOf(id);
  if (!record || record->IsImage() || lists_.desktop.Find(id) != nullptr) return false;
  const FileStatus written = context_.files.Write(folder_ + ContentPath(*record), rtf);
  if (!written) {
    context_.log.Write(kLogLifecycle, u"Unable to write the text of jotlet ", record->id, u": ",
                       written.reason);
    return false;
  }
  record->modified = Now();
  for (RecordList* list : {&lists_.attached, &lists_.sleeping, &lists_.closed})
    if (std::as_const(*list).Find(id) != nullptr) list->FindToChange(id)->modified = record->modified;
  if (const std::optional<std::int64_t> key = context_.store.KeyOf(id))
    context_.store.SetRecord(*key, *record);
  Changed();
  return true;
}

std::size_t NoteDesk::DeleteStored(const std::vector<Text>& ids) {
  if (ids.empty() || !context_.store.IsOpen()) return ids.size();
  std::vector<JotletData> deleted;
  context_.store.EndChange();
  context_.store.BeginChange();
  for (const Text& id : ids) {
    const std::optional<std::int64_t> key = context_.store.KeyOf(id);
    std::optional<StoredNote> note = key ? context_.store.Find(*key) : std::nullopt;
    if (!note) continue;
    // A failure can have undone the whole change, which nothing may be added to then.
    if (!context_.store.Remove(*key)) break;
    deleted.push_back(std::move(note->record));
  }
  // Their contents go when the store has forgotten them for good.
  if (!context_.store.EndChange()) return ids.size();
  for (const JotletData& record : deleted)
    if (!lists_.WhereIs(record.id)) saver_.RemoveContentLater(record);
  Changed();
  return ids.size() - deleted.size();
}

}  // namespace jotlets

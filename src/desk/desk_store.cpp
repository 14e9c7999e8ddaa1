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

bool NoteDesk::CreateStored(const NewNote& fresh, TextView category) {
  NewNote whole = fresh;
  whole.content = fresh.rtf.empty() ? RtfOfPlainText(fresh.text) : RtfBytes(fresh.rtf);
  const std::optional<JotletData> record = maker_.Make(whole);
  if (!record) return false;
  if (context_.store.Put(*record, category)) return true;
  context_.files.Remove(folder_ + ContentPath(*record));
  return false;
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

std::size_t NoteDesk::DeleteStored(const std::vector<Text>& ids) {
  std::size_t left = 0;
  for (const Text& id : ids) {
    const std::optional<std::int64_t> key = context_.store.KeyOf(id);
    const std::optional<StoredNote> note = key ? context_.store.Find(*key) : std::nullopt;
    if (!note || !context_.store.Remove(*key)) {
      ++left;
    } else if (!lists_.WhereIs(id)) {
      saver_.RemoveContentLater(note->record);
    }
  }
  Changed();
  return left;
}

}  // namespace jotlets

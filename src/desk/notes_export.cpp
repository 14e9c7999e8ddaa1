#include "desk/notes_export.h"

#include <utility>

#include "base/json_object.h"
#include "data/rtf_bytes.h"
#include "data/rtf_text.h"
#include "data/text_export.h"
#include "data/written_time.h"

namespace jotlets {
namespace {

constexpr TextView kUnread = u"its text cannot be read";

constexpr TextView NameOf(const std::optional<NoteList>& list) {
  if (!list) return u"stored";
  switch (*list) {
    case NoteList::kDesktop: return u"desktop";
    case NoteList::kAttached: return u"attached";
    case NoteList::kSleeping: return u"sleeping";
    case NoteList::kClosed: return u"closed";
  }
  return {};
}

Text WordsOf(TextView rtf) {
  return ReplaceAll(RtfTextStart(RtfBytes(rtf), static_cast<std::size_t>(kLargestSearchedFile)), u"\r\n",
                    u"\n");
}

}  // namespace

NotesExport::NotesExport(Context context, std::vector<Text> ids, TextView path)
    : context_(context), ids_(std::move(ids)), path_(path), one_(HasExtension(path, u".json")) {}

NotesExport::~NotesExport() {
  if (begun_ && !ended_) context_.files.Remove(path_ + Text(kNeighbourExtension));
}

Job::State NotesExport::Step(std::size_t mostFiles) {
  for (std::size_t step = 0; step < mostFiles && at_ < ids_.size(); ++step) {
    const Text& id = ids_[at_++];
    const std::optional<Note> note = Find(id);
    if (!note) {
      Leave(id, {}, u"it is not there any more");
      continue;
    }
    const Text title = context_.copies.TitleOf(note->record);
    const FileStatus written = one_ ? Add(*note, title) : Write(*note, title);
    if (written) ++written_;
    if (!written) Leave(id, title, written.reason);
    if (one_ && ended_) return State::kFailed;
  }
  if (at_ < ids_.size()) return State::kRunning;
  return End();
}

std::optional<NotesExport::Note> NotesExport::Find(TextView id) {
  if (const JotletData* record = context_.lists.FindRecord(id))
    return Note{*record, {}, context_.lists.WhereIs(id)};
  const std::optional<std::int64_t> key = context_.store.KeyOf(id);
  std::optional<StoredNote> note = key ? context_.store.Find(*key) : std::nullopt;
  if (!note) return std::nullopt;
  return Note{std::move(note->record), std::move(note->category), std::nullopt, *key};
}

FileStatus NotesExport::Write(const Note& note, const Text& title) {
  const std::size_t dot = path_.find_last_of(u".\\");
  const bool hasKind = dot != Text::npos && path_[dot] == u'.';
  const Text kind = note.record.IsImage() ? Text(u".png") : hasKind ? path_.substr(dot) : Text();
  const bool first = at_ == 1;
  const Text folder = path_.substr(0, path_.find_last_of(u'\\') + 1);
  const Text path =
      FreePath(first ? path_.substr(0, hasKind ? dot : Text::npos) : folder + FileNameOfTitle(title), kind);
  if (note.record.IsImage() || !IsOtherKind(path)) return context_.copies.WriteCopy(note.record, path);
  const Text rtf = context_.copies.RichTextOf(note.record);
  if (rtf.empty()) return FileStatus::Failed(Text(kUnread));
  std::string bytes = CopyOfText(note.record, rtf, title, path);
  if (HasExtension(path, u".md"))
    bytes.insert(0, ToUtf8(FrontMatterOf(note.record, title, note.category, WordsOf(rtf))));
  return context_.files.Write(path, bytes);
}

FileStatus NotesExport::Add(const Note& note, const Text& title) {
  constexpr std::size_t kWrittenAtOnce = 256 << 10;
  const JotletData& record = note.record;
  if (record.IsImage()) return FileStatus::Failed(u"it is a picture");
  const Text rtf = context_.copies.RichTextOf(record);
  if (rtf.empty()) return FileStatus::Failed(Text(kUnread));
  JsonObject json;
  json.Add("id", record.id);
  if (!note.list) json.AddNumber("key", note.key);
  json.Add("title", title);
  json.Add("state", NameOf(note.list));
  if (!note.list) json.Add("category", note.category);
  if (record.created > 0) json.Add("created", WrittenTime(record.created));
  if (record.modified > 0) json.Add("changed", WrittenTime(record.modified));
  if (note.list == NoteList::kSleeping) json.Add("wakes", WrittenTime(record.sleep.nextWake));
  json.Add("colour", ColourForm(record.colour));
  json.Add("text", WordsOf(rtf));
  json.Add("rtf", rtf);
  ready_ += (written_ == 0 ? "[\n" : ",\n") + json.Close();
  return ready_.size() < kWrittenAtOnce ? FileStatus() : Append();
}

// Into a neighbour: what is there under the name itself is whole.
FileStatus NotesExport::Append() {
  const Text neighbour = path_ + Text(kNeighbourExtension);
  FileStatus status;
  if (!std::exchange(begun_, true)) status = context_.files.Remove(neighbour);
  if (status) status = context_.files.Append(neighbour, std::exchange(ready_, {}));
  if (!status) GiveUp(status.reason);
  return status;
}

void NotesExport::GiveUp(const Text& reason) {
  if (reason_.empty()) reason_ = reason;
  written_ = 0;
  ended_ = true;
  context_.files.Remove(path_ + Text(kNeighbourExtension));
}

Job::State NotesExport::End() {
  if (one_ && !ended_ && written_ > 0) {
    ready_ += "\n]\n";
    if (Append()) {
      // A copy is flushed to the disk.
      const Text neighbour = path_ + Text(kNeighbourExtension);
      const std::size_t dot = path_.rfind(u'.');
      const FileStatus copied =
          context_.files.Copy(neighbour, FreePath(path_.substr(0, dot), path_.substr(dot)));
      if (!copied) GiveUp(copied.reason);
      context_.files.Remove(neighbour);
      ended_ = true;
    }
  }
  return reason_.empty() ? State::kDone : State::kFailed;
}

Text NotesExport::FreePath(const Text& front, TextView kind) {
  Text path = front + Text(kind);
  // Many notes can have one title: those with a number that is taken are not looked for again.
  int& number = numbers_.try_emplace(FoldCase(path), 1).first->second;
  while (context_.files.Exists(path)) path = front + u" (" + IntText(++number) + u")" + Text(kind);
  return path;
}

void NotesExport::Leave(const Text& id, Text title, Text reason) {
  constexpr std::size_t kMaximumFaults = 10000;
  if (reason_.empty()) reason_ = reason;
  if (faults_.size() < kMaximumFaults) faults_.push_back({id, std::move(title), std::move(reason)});
}

}  // namespace jotlets

#include "desk/folder_import.h"

#include <utility>

#include "desk/note_import.h"

namespace jotlets {
namespace {

constexpr TextView kKinds[] = {u".txt", u".md",  u".markdown", u".rtf",  u".html",
                               u".htm", u".jtl", u".enex",     u".opml", u".csv"};
// A link may lead back to where it stands.
constexpr int kDeepest = 16;
// The store writes them to the disk together.
constexpr std::size_t kInOneChange = 200;
constexpr TextView kNotStored = u"it could not be stored";

Text LastName(TextView folder) {
  folder.remove_suffix(1);
  return Text(folder.substr(folder.find_last_of(u"\\/:") + 1));
}

}  // namespace

FolderImport::FolderImport(Context context, TextView from, std::optional<CsvColumns> columns)
    : context_(context), columns_(columns) {
  if (from.ends_with(u'\\') || from.ends_with(u'/')) {
    places_.push_back({Text(from), LastName(from)});
  } else {
    found_.push_back({Text(from), {}});
  }
}

int FolderImport::Percent() const {
  const int whole = PercentOf(next_, found_.size());
  if (many_.notes == nullptr) return whole;
  const auto files = static_cast<int>(found_.size());
  return PercentOf(next_ - 1, found_.size()) + many_.notes->Percent() / files;
}

Job::State FolderImport::Step(std::size_t mostFiles) {
  for (std::size_t step = 0; step < mostFiles; ++step) {
    if (many_.notes != nullptr) {
      ReadOn();
    } else if (!places_.empty()) {
      const Place place = std::move(places_.back());
      places_.pop_back();
      LookInto(place);
    } else if (next_ < found_.size()) {
      Open(found_[next_++]);
    } else {
      EndChange();
      return reason_.empty() ? State::kDone : State::kFailed;
    }
  }
  return State::kRunning;
}

void FolderImport::LookInto(const Place& place) {
  for (const TextView kind : kKinds)
    for (const Text& name : context_.files.List(place.path, kind))
      found_.push_back({place.path + name, place.category});
  if (place.depth == kDeepest) return;
  for (const Text& name : context_.files.ListFolders(place.path))
    places_.push_back({place.path + name + u"\\", place.category + u"/" + name, place.depth + 1});
}

void FolderImport::Open(const Found& file) {
  Text reason;
  if (IsCollection(file.path)) {
    many_ = {CollectionOfFile(context_.files, context_.ansi, file.path, columns_, reason), 0};
    if (many_.notes == nullptr) Leave(file.path, std::move(reason));
    return;
  }
  std::optional<NewNote> fresh =
      NoteFromFile(context_.files, context_.ansi, file.path, context_.maximumWidth, reason);
  if (fresh && Store(std::move(*fresh), file.category)) return;
  Leave(file.path, fresh ? Text(kNotStored) : std::move(reason));
}

void FolderImport::ReadOn() {
  CollectedNote note;
  const NoteCollection::State state = many_.notes->Next(note);
  if (state == NoteCollection::State::kNote) return Import(note);
  if (state == NoteCollection::State::kReading) return;
  if (!many_.notes->Fault().empty()) Leave(found_[next_ - 1].path, many_.notes->Fault());
  many_ = {};
}

void FolderImport::Import(const CollectedNote& note) {
  const Found& file = found_[next_ - 1];
  const Text place = file.path + u": note " + IntText(++many_.number);
  if (!note.fault.empty()) return Leave(place, note.fault);
  const Text own = file.category + (file.category.empty() ? u"" : u"/") + NameOfFile(file.path);
  if (!Store(FromCollected(note), note.category.empty() ? own : note.category))
    return Leave(place, Text(kNotStored));
  for (const Text& left : note.left) Leave(place, u"without " + left);
}

bool FolderImport::Store(NewNote fresh, TextView category) {
  if (inChange_ == 0) context_.store.BeginChange();
  const std::optional<std::int64_t> key = context_.desk.CreateStored(std::move(fresh), category);
  // A failure can have undone the whole change, which nothing may be added to then.
  if (!key) EndChange();
  if (!key) return false;
  keys_.push_back(*key);
  if (++inChange_ == kInOneChange) EndChange();
  return true;
}

void FolderImport::Leave(Text path, Text reason) {
  constexpr std::size_t kMaximumFaults = 10000;
  if (faults_.size() > kMaximumFaults) return;
  if (faults_.size() == kMaximumFaults) reason = u"this and all that follows is not named any more";
  context_.log.Write(kLogLifecycle, u"Unable to import '", path, u"': ", reason);
  faults_.push_back({std::move(path), std::move(reason)});
}

// What was not written has lost its keys: they can be those of others by now.
void FolderImport::EndChange() {
  const std::size_t count = std::exchange(inChange_, 0);
  if (count == 0 || context_.store.EndChange()) return;
  keys_.resize(keys_.size() - count);
  if (reason_.empty()) reason_ = u"the store could not be written";
}

}  // namespace jotlets

#include "desk/folder_import.h"

#include <utility>

#include "desk/note_import.h"

namespace jotlets {
namespace {

constexpr TextView kKinds[] = {u".txt", u".md", u".markdown", u".rtf", u".html", u".htm", u".jtl"};
// A link may lead back to where it stands.
constexpr int kDeepest = 16;
// The store writes them to the disk together.
constexpr std::size_t kInOneChange = 200;

Text LastName(TextView folder) {
  folder.remove_suffix(1);
  return Text(folder.substr(folder.find_last_of(u"\\/:") + 1));
}

}  // namespace

FolderImport::FolderImport(Context context, TextView folder) : context_(context) {
  places_.push_back({Text(folder), LastName(folder)});
}

Job::State FolderImport::Step(std::size_t mostFiles) {
  for (std::size_t step = 0; step < mostFiles; ++step) {
    if (!places_.empty()) {
      const Place place = std::move(places_.back());
      places_.pop_back();
      LookInto(place);
    } else if (next_ < found_.size()) {
      Import(found_[next_++]);
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

void FolderImport::Import(const Found& file) {
  Text reason;
  const std::optional<NewNote> fresh =
      NoteFromFile(context_.files, context_.ansi, file.path, context_.maximumWidth, reason);
  if (inChange_ == 0 && fresh) context_.store.BeginChange();
  if (fresh && context_.desk.CreateStored(*fresh, file.category)) {
    ++imported_;
    if (++inChange_ == kInOneChange) EndChange();
    return;
  }
  if (fresh) reason = u"it could not be stored";
  context_.log.Write(kLogLifecycle, u"Unable to import '", file.path, u"': ", reason);
  faults_.push_back({file.path, std::move(reason)});
}

void FolderImport::EndChange() {
  if (std::exchange(inChange_, 0) > 0 && !context_.store.EndChange() && reason_.empty())
    reason_ = u"the store could not be written";
}

}  // namespace jotlets

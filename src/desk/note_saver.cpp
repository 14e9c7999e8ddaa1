#include "desk/note_saver.h"

#include <algorithm>
#include <set>
#include <utility>

#include "data/data_folder.h"
#include "data/loading.h"
#include "data/saving.h"

namespace jotlets {

void NoteSaver::SetFolder(TextView dataFolder, TextView installId) {
  folder_ = dataFolder;
  installId_ = installId;
}

Text NoteSaver::MainPath() const { return folder_ + Text(kDataFileName); }

void NoteSaver::RemoveContentLater(const JotletData& record) {
  contentToRemove_.push_back(ContentPath(record));
}

bool NoteSaver::HasUnsavedContent() const {
  return std::any_of(lists_.desktop.begin(), lists_.desktop.end(), [this](const auto& record) {
    return windows_.ContentOf(record->id).HasUnsavedChanges();
  });
}

// The first failure counts; the rest is written all the same.
FileStatus NoteSaver::SaveContents() {
  FileStatus first;
  for (const auto& record : lists_.desktop) {
    const FileStatus saved = windows_.SaveContent(record->id);
    if (!saved && first) first = saved;
  }
  return first;
}

bool NoteSaver::SaveJotlets(TextView path, bool isMainSave) {
  log_.Write(kLogDetail, u"SaveJotlets started for '", path, u"'");
  FileStatus status;
  if (isMainSave) {
    if (!PutUnreadFileAside()) return false;
    status = SaveContents();
  }
  DataFileView view;
  view.installId = installId_;
  view.stacks = lists_.stacks;
  for (const auto& record : lists_.desktop) {
    windows_.Sync(record->id);
    view.jotlets.push_back(record.get());
  }
  for (const JotletData& record : lists_.attached) view.jotlets.push_back(&record);
  for (const JotletData& record : lists_.sleeping) view.jotlets.push_back(&record);
  view.verbatim = lists_.verbatim;
  for (const JotletData& record : lists_.closed) view.deleted.push_back(&record);
  view.rolledHasAltPosition = options_.rolledHasAltPosition;
  const FileStatus written = SaveDataFile(files_, path, view, lines_);
  if (status) status = written;
  if (!status) {
    log_.Write(kLogLifecycle, u"SaveJotlets failed for '", path, u"': ", status.reason);
    return false;
  }
  if (isMainSave) {
    dirty_ = false;
    RemoveContents(view);
  }
  log_.Write(kLogDetail, u"SaveJotlets completed OK");
  return true;
}

bool NoteSaver::SaveIfDirty() { return !IsDirty() || SaveJotlets(MainPath(), true); }

bool NoteSaver::PutUnreadFileAside() {
  if (!unreadFileInPlace_) return true;
  if (files_.Exists(MainPath())) {
    const Text kept = DatedName(files_, MainPath(), kDamagedMark, clock_.Now().local);
    if (const FileStatus copied = files_.Copy(MainPath(), kept); !copied) {
      log_.Write(kLogLifecycle, u"The unread data file could not be kept: ", copied.reason);
      return false;
    }
  }
  unreadFileInPlace_ = false;
  return true;
}

void NoteSaver::RemoveContents(const DataFileView& view) {
  // While saves failed, a new note may have got the id of one that is gone.
  std::set<Text> inUse;
  if (!contentToRemove_.empty()) {
    for (const JotletData* record : view.jotlets) inUse.insert(FoldCase(ContentPath(*record)));
    for (const JotletData* record : view.deleted) inUse.insert(FoldCase(ContentPath(*record)));
  }
  for (const Text& path : std::exchange(contentToRemove_, {})) {
    if (inUse.contains(FoldCase(path))) continue;
    const FileStatus removed = files_.Remove(folder_ + path);
    if (!removed) log_.Write(kLogLifecycle, u"Unable to remove '", path, u"': ", removed.reason);
  }
}

}  // namespace jotlets

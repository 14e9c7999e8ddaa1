#include "desk/note_saver.h"

#include <algorithm>
#include <set>
#include <utility>

#include "data/content_files.h"
#include "data/data_folder.h"
#include "data/loading.h"
#include "data/saving.h"
#include "data/text_file.h"

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

// Somebody may take the data folder away while the program runs: what is open is all that is left of it.
void NoteSaver::MakeFoldersAgain() {
  if (files_.Exists(folder_ + Text(kRtfFolder))) return;
  if (const FileStatus made = MakeDataFolders(files_, folder_); !made) {
    log_.Write(kLogLifecycle, u"Unable to make '", folder_, u"' again: ", made.reason);
    return;
  }
  log_.Write(kLogLifecycle, u"The folders of '", folder_, u"' were gone and have been made again");
  for (const auto& record : lists_.desktop) windows_.ContentOf(record->id).SetUnsavedChanges(true);
}

// The first failure counts; the rest is written all the same.
FileStatus NoteSaver::SaveContents() {
  MakeFoldersAgain();
  std::vector<Text> ids;
  for (const auto& record : lists_.desktop) {
    if (windows_.ContentOf(record->id).HasUnsavedChanges()) ids.push_back(record->id);
  }
  journal_.BeforeContents(ids);
  FileStatus first;
  for (const Text& id : ids) {
    const FileStatus saved = goesOn_() ? windows_.SaveContent(id) : FileStatus::Failed(u"the session ends");
    if (!saved && first) first = saved;
  }
  return first;
}

DataFileView NoteSaver::View() {
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
  return view;
}

bool NoteSaver::SaveJotlets(TextView path, bool isMainSave) {
  log_.Write(kLogDetail, u"SaveJotlets started for '", path, u"'");
  FileStatus status;
  if (isMainSave) {
    if (!PutUnreadFileAside()) return false;
    status = SaveContents();
  }
  const DataFileView view = View();
  Text text = MarkedDataFile(view, lines_);
  const std::string_view bytes = MarkedBytes(text);
  const Fingerprint fingerprint = isMainSave ? FingerprintOf(bytes) : 0;
  if (isMainSave) journal_.BeforeSave(fingerprint, status.ok);
  const FileStatus written = files_.Write(path, bytes);
  if (status) status = written;
  if (!status) {
    log_.Write(kLogLifecycle, u"SaveJotlets failed for '", path, u"': ", status.reason);
    return false;
  }
  if (isMainSave) {
    dirty_ = false;
    journal_.Reset(fingerprint);
    RemoveContents(view);
  }
  log_.Write(kLogDetail, u"SaveJotlets completed OK");
  return true;
}

bool NoteSaver::SaveBeforeEnd(std::function<bool()> goesOn) {
  journal_.WriteChanges([] { return true; });
  if (const FileStatus flushed = journal_.Flush(); !flushed)
    log_.Write(kLogLifecycle, u"Unable to write the journal: ", flushed.reason);
  goesOn_ = std::move(goesOn);
  const bool saved = SaveJotlets(MainPath(), true);
  goesOn_ = [] { return true; };
  return saved;
}

FileStatus NoteSaver::SaveElsewhere(TextView folder) {
  for (const auto& record : lists_.desktop) {
    const ContentBytes content = windows_.ContentOf(record->id).BytesToSave();
    FileStatus status = content.status;
    Text fault;
    if (status && content.bytes)
      status = WriteContent(files_, Text(folder) + ContentPath(*record), content, fault);
    if (!status) return status;
  }
  Text text = MarkedDataFile(View(), lines_);
  return files_.Write(Text(folder) + Text(kDataFileName), MarkedBytes(text));
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
    const FileStatus removed = RemoveContentFile(files_, folder_ + path);
    if (!removed) log_.Write(kLogLifecycle, u"Unable to remove '", path, u"': ", removed.reason);
  }
}

}  // namespace jotlets

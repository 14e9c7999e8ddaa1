#include "note/note_content.h"

#include "data/content_files.h"
#include "data/loading.h"

namespace jotlets {
namespace {

// The mark is taken back first: typing that arrives while the file is written must count as a change again.
// It is set again by whatever keeps the file from being written, short memory included.
class UnsavedUntilWritten {
 public:
  explicit UnsavedUntilWritten(NoteContent& content) : content_(content) {
    content_.SetUnsavedChanges(false);
  }
  ~UnsavedUntilWritten() {
    if (!written_) content_.SetUnsavedChanges(true);
  }
  UnsavedUntilWritten(const UnsavedUntilWritten&) = delete;
  UnsavedUntilWritten& operator=(const UnsavedUntilWritten&) = delete;
  void Written() { written_ = true; }

 private:
  NoteContent& content_;
  bool written_ = false;
};

}  // namespace

FileStatus WriteContent(Files& files, TextView path, const ContentBytes& content, Text& fault) {
  const Text beside = ObjectsPath(path);
  if (!beside.empty()) fault = files.Remove(beside).reason;
  const FileStatus written = files.Write(path, *content.bytes);
  if (written && !content.objects.empty()) fault = files.Write(beside, content.objects).reason;
  return written;
}

ContentSaved SaveContentFile(NoteContent& content, bool& keepOld, Files& files, TextView path,
                             const LocalTime& now) {
  const ContentBytes toSave = content.BytesToSave();
  if (!toSave.status) return {toSave.status, false, {}};
  const std::optional<std::string>& bytes = toSave.bytes;
  if (!bytes) return {};
  if (keepOld && files.Exists(path)) {
    const FileStatus kept = files.Copy(path, DatedName(files, path, kDamagedMark, now));
    if (!kept) return {kept, false, {}};
  }
  keepOld = false;
  UnsavedUntilWritten unsaved(content);
  ContentSaved saved;
  saved.status = WriteContent(files, path, toSave, saved.fault);
  saved.written = saved.status.ok;
  if (saved.written) unsaved.Written();
  return saved;
}

}  // namespace jotlets

#include "note/note_content.h"

#include "data/loading.h"

namespace jotlets {

ContentSaved SaveContentFile(NoteContent& content, bool& keepOld, Files& files, TextView path,
                             const LocalTime& now) {
  const ContentBytes toSave = content.BytesToSave();
  if (!toSave.status) return {toSave.status};
  const std::optional<std::string>& bytes = toSave.bytes;
  if (!bytes) return {};
  if (keepOld && files.Exists(path)) {
    const FileStatus kept = files.Copy(path, DatedName(files, path, kDamagedMark, now));
    if (!kept) return {kept};
  }
  keepOld = false;
  // Taken back first: typing that arrives while the file is written must count as a change again.
  content.SetUnsavedChanges(false);
  const FileStatus written = files.Write(path, *bytes);
  if (!written) content.SetUnsavedChanges(true);
  return {written, written.ok};
}

}  // namespace jotlets

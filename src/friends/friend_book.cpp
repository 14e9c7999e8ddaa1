#include "friends/friend_book.h"

#include "data/data_folder.h"
#include "data/loading.h"
#include "data/text_file.h"

namespace jotlets {

void FriendBook::Open(TextView dataFolder) {
  path_ = Text(dataFolder).append(kFriendsFileName);
  const FileContent content = files_.Read(path_);
  if (content.state == FileContent::State::kUnreadable) {
    log_.Write(kLogLifecycle, u"Unable to read '", path_, u"': ", content.reason);
  }
  const TextFile file = DecodeTextFile(content.bytes, ansi_);
  keepOldFile_ = file.damaged || content.state == FileContent::State::kUnreadable;
  list_ = ParseFriends(file.text);
}

FileStatus FriendBook::Replace(FriendList list) {
  if (keepOldFile_ && files_.Exists(path_)) {
    FileStatus kept = files_.Copy(path_, DatedName(files_, path_, kDamagedMark, clock_.Now().local));
    if (!kept) return kept;
  }
  CorrectLevels(list);
  FileStatus written = SaveFriends(files_, log_, path_, list);
  if (written) {
    keepOldFile_ = false;
    list_ = std::move(list);
  }
  return written;
}

}  // namespace jotlets

#include "friends/friend_book.h"

#include "data/data_folder.h"
#include "data/loading.h"
#include "data/text_file.h"
#include "friends/friend_merging.h"

namespace jotlets {

void FriendBook::Open(TextView dataFolder) {
  path_ = Text(dataFolder).append(kFriendsFileName);
  const FileContent content = files_.Read(path_);
  if (content.state == FileContent::State::kUnreadable) {
    log_.Write(kLogLifecycle, u"Unable to read '", path_, u"': ", content.reason);
  }
  const TextFile file = DecodeTextFile(content.bytes, ansi_);
  bool passedOver = false;
  list_ = ParseFriends(file.text, &passedOver);
  keepOldFile_ = file.damaged || passedOver || content.state == FileContent::State::kUnreadable;
}

void FriendBook::Merge(std::span<const Text> friendLines) {
  FriendReader reader;
  for (const Text& line : friendLines) reader.LoadFriendLine(line);
  const std::size_t added = MergeFriends(list_, reader.List());
  dirty_ = dirty_ || added != 0;
  if (added != 0) log_.Write(kLogLifecycle, u"Entries of the data file's friends added: ", added);
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
    dirty_ = false;
    list_ = std::move(list);
  }
  return written;
}

}  // namespace jotlets

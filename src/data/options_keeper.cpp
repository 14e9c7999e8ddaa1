#include "data/options_keeper.h"

#include <limits>

#include "data/data_folder.h"
#include "data/loading.h"
#include "data/saving.h"

namespace jotlets {

void OptionsKeeper::Peek(TextView dataFolder) {
  LoadOptionsFile(files_, ansi_, Text(dataFolder) + Text(kOptionsFileName), options_);
}

void OptionsKeeper::Load(TextView dataFolder) {
  path_ = Text(dataFolder) + Text(kOptionsFileName);
  // What was peeked at may have been replaced by a backup since.
  options_ = {};
  unread_ = !LoadOptionsToReplace(files_, ansi_, log_, clock_.Now().local, path_, options_);
  // How many closed notes to keep is then not known: none is dropped.
  if (unread_) options_.keepDeleted = std::numeric_limits<std::int32_t>::max();
}

void OptionsKeeper::Save() {
  dirty_ = false;
  if (unread_) return;
  log_.Write(kLogDetail, u"SaveOptions started for '", path_, u"'");
  const FileStatus saved = SaveOptionsFile(files_, path_, options_);
  if (saved) {
    log_.Write(kLogDetail, u"SaveOptions completed OK");
  } else {
    log_.Write(kLogLifecycle, u"SaveOptions failed: ", saved.reason);
  }
}

}  // namespace jotlets

#include "data/saving.h"

#include "data/data_folder.h"
#include "data/options_file.h"
#include "data/text_file.h"

namespace jotlets {

Text MarkedDataFile(const DataFileView& view, RecordLines& lines) {
  Text text(1, kByteOrderMark);
  AppendDataFile(text, view, lines);
  return text;
}

FileStatus SaveOptionsFile(Files& files, TextView path, const Options& options) {
  return files.Write(path, EncodeTextFile(ComposeOptions(options)));
}

FileStatus MoveFriends(Files& files, TextView dataFolder, std::span<const Text> friendLines) {
  const Text path = Text(dataFolder).append(kFriendsFileName);
  if (friendLines.empty() || files.Exists(path)) return {};
  Text text = u"[Friends]\n";
  for (const Text& line : friendLines) text.append(line).push_back(u'\n');
  return files.Write(path, EncodeTextFile(text));
}

}  // namespace jotlets

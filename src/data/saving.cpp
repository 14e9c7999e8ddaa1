#include "data/saving.h"

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

}  // namespace jotlets

#include "desk/sleeping_notes.h"

#include <utility>

#include "data/rtf_bytes.h"
#include "data/rtf_text.h"

namespace jotlets {
namespace {

// What of a text is compared: copies of a longer one that differ only behind it count as touched by nobody.
constexpr std::size_t kMaximumCompared = 1 << 20;

// The editor ends every text with a line of its own.
Text WordsOf(std::string_view rtf) {
  Text words = RtfTextStart(rtf, kMaximumCompared);
  words.resize(words.find_last_not_of(u"\r\n") + 1);
  return words;
}

}  // namespace

bool SleepingNotes::HasCopyOf(const JotletData& source) {
  const Text path = desk_.Folder() + ContentPath(source);
  std::optional<Text> words;
  for (const auto& open : desk_.Lists().desktop) {
    windows_.Sync(open->id);
    if (!IsUntouchedCopy(*open, source) || source.isImage != open->isImage) continue;
    if (source.IsImage()) {
      if (files_.SameContent(path, desk_.Folder() + ContentPath(*open))) return true;
      continue;
    }
    if (!words) words = WordsOf(files_.Read(path).bytes);
    if (WordsOf(RtfBytes(windows_.ContentOf(open->id).RichText())) == *words) return true;
  }
  return false;
}

void SleepingNotes::StartDueAlarms(std::int64_t now) {
  std::vector<Text> due;
  for (const auto& open : desk_.Lists().desktop) {
    if (open->alarm != kNone && open->alarm < now) due.push_back(open->id);
  }
  for (const Text& id : due) {
    if (desk_.Lists().desktop.Find(id) != nullptr) windows_.StartAlarm(id);
  }
}

}  // namespace jotlets

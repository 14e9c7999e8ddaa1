#include "app/activity_log.h"

namespace jotlets {
namespace {

constexpr std::size_t kLongestText = 1024;
constexpr std::size_t kMaximumHeld = 1000;

}  // namespace

Text LogEntry(const LocalTime& time, TextView text) {
  Text entry = LogStamp(time);
  entry.push_back(u' ');
  entry.append(OneLine(text.substr(0, kLongestText)));
  if (text.size() > kLongestText) entry.append(u"...");
  if (text.starts_with(u"Jotlets closed")) entry.push_back(u'\n');
  entry.push_back(u'\n');
  return entry;
}

void ActivityLog::Open(TextView path, int highestLevel) {
  path_ = path;
  highestLevel_ = highestLevel;
  for (const auto& [level, entry] : held_) {
    if (level <= highestLevel_) files_.Append(path_, ToUtf8(entry));
  }
  held_.clear();
}

bool ActivityLog::Writes(int level) const { return path_.empty() || level <= highestLevel_; }

void ActivityLog::WriteEntry(int level, TextView text) {
  Text entry = LogEntry(clock_.Now().local, text);
  if (!path_.empty()) {
    files_.Append(path_, ToUtf8(entry));
  } else if (held_.size() < kMaximumHeld) {
    held_.emplace_back(level, std::move(entry));
  }
}

}  // namespace jotlets

#include "base/clock.h"

#include <algorithm>
#include <limits>

namespace jotlets {
namespace {

void AppendTwoDigits(Text& out, int value) {
  if (value < 10) out.push_back(u'0');
  AppendInt(out, value);
}

}  // namespace

std::int32_t RecordTime(std::int64_t utc) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(utc, Limits::min(), Limits::max()));
}

Text LogStamp(const LocalTime& t) {
  Text out;
  AppendPaddedInt(out, t.year);
  out.push_back(u'-');
  AppendTwoDigits(out, t.month);
  out.push_back(u'-');
  AppendTwoDigits(out, t.day);
  out.push_back(u' ');
  AppendTwoDigits(out, t.hour);
  out.push_back(u':');
  AppendTwoDigits(out, t.minute);
  out.push_back(u'.');
  AppendTwoDigits(out, t.second);
  return out;
}

Text MinuteStamp(const LocalTime& t) {
  Text out;
  AppendPaddedInt(out, t.year);
  for (const int part : {t.month, t.day, t.hour, t.minute}) AppendTwoDigits(out, part);
  return out;
}

}  // namespace jotlets

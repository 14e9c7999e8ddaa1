#include "data/written_time.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace jotlets {
namespace {

constexpr std::array<TextView, 12> kMonths = {u"jan", u"feb", u"mar", u"apr", u"may", u"jun",
                                              u"jul", u"aug", u"sep", u"oct", u"nov", u"dec"};

struct Written {
  int year = 0, month = 0, day = 0;
  int hour = 0, minute = 0, second = 0;
  int zoneMinutes = 0;  // ahead of UTC
};

// Walks over a text; a part that is not there leaves it where it is.
class TimeReader {
 public:
  explicit TimeReader(TextView text) : rest_(TrimBlanks(text)) {}

  bool AtEnd() const { return rest_.empty(); }
  bool Skip(char16_t unit) {
    if (!rest_.starts_with(unit)) return false;
    rest_.remove_prefix(1);
    return true;
  }
  bool Digits(std::size_t minimum, std::size_t maximum, int& number) {
    std::size_t length = 0;
    while (length < std::min(maximum, rest_.size()) && IsDigit(rest_[length])) ++length;
    if (length < minimum) return false;
    number = ParseInt(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return true;
  }
  Text Letters() {
    const auto end = std::ranges::find_if_not(rest_, [](char16_t unit) {
      const char16_t small = unit | 0x20;
      return small >= u'a' && small <= u'z';
    });
    const TextView letters = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    rest_.remove_prefix(letters.size());
    return FoldCase(letters);
  }

 private:
  static bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
  TextView rest_;
};

bool ReadDate(TimeReader& reader, Written& time) {
  if (!reader.Digits(4, 4, time.year)) return false;
  const bool dashes = reader.Skip(u'-');
  if (!reader.Digits(dashes ? 1 : 2, 2, time.month)) return false;
  return (!dashes || reader.Skip(u'-')) && reader.Digits(dashes ? 1 : 2, 2, time.day);
}

// "Sat, 10 Oct 2020", the name of the day as it pleases.
bool ReadMailDate(TimeReader& reader, Written& time) {
  if (!reader.Letters().empty() && reader.Skip(u',')) reader.Skip(u' ');
  if (!reader.Digits(1, 2, time.day) || !reader.Skip(u' ')) return false;
  const auto month = std::ranges::find(kMonths, reader.Letters());
  time.month = static_cast<int>(month - kMonths.begin()) + 1;
  return month != kMonths.end() && reader.Skip(u' ') && reader.Digits(4, 4, time.year);
}

bool ReadClock(TimeReader& reader, Written& time) {
  if (!reader.Digits(1, 2, time.hour)) return false;
  const bool colons = reader.Skip(u':');
  if (!reader.Digits(2, 2, time.minute)) return false;
  if (colons ? reader.Skip(u':') : !reader.AtEnd()) {
    if (!reader.Digits(2, 2, time.second)) return false;
    int fraction = 0;
    if (reader.Skip(u'.')) return reader.Digits(1, 9, fraction);
  }
  return true;
}

bool ReadZone(TimeReader& reader, Written& time) {
  reader.Skip(u' ');
  const bool ahead = reader.Skip(u'+');
  if (!ahead && !reader.Skip(u'-')) {
    const Text zone = reader.Letters();
    return reader.AtEnd() &&
           (zone.empty() || zone == u"z" || zone == u"gmt" || zone == u"utc" || zone == u"ut");
  }
  int hours = 0;
  int minutes = 0;
  if (!reader.Digits(2, 2, hours)) return false;
  reader.Skip(u':');
  if (!reader.AtEnd() && !reader.Digits(2, 2, minutes)) return false;
  time.zoneMinutes = (ahead ? 1 : -1) * (hours * 60 + minutes);
  return reader.AtEnd();
}

}  // namespace

std::optional<std::int64_t> ParseWrittenTime(TextView text) {
  Written time;
  TimeReader reader(text);
  if (!ReadDate(reader, time)) {
    reader = TimeReader(text);
    time = {};
    if (!ReadMailDate(reader, time)) return std::nullopt;
  }
  if (!reader.AtEnd()) {
    if (!reader.Skip(u'T') && !reader.Skip(u' ')) return std::nullopt;
    if (!ReadClock(reader, time) || !ReadZone(reader, time)) return std::nullopt;
  }
  const std::chrono::year_month_day date(std::chrono::year(time.year),
                                         std::chrono::month(static_cast<unsigned>(time.month)),
                                         std::chrono::day(static_cast<unsigned>(time.day)));
  if (!date.ok() || time.year < 1970 || time.hour > 23 || time.minute > 59 || time.second > 60)
    return std::nullopt;
  const std::chrono::sys_seconds days = std::chrono::sys_days(date);
  return days.time_since_epoch().count() + time.hour * 3600 + time.minute * 60 + time.second -
         time.zoneMinutes * 60;
}

Text WrittenTime(std::int64_t utc) {
  const std::chrono::sys_seconds time{std::chrono::seconds(utc)};
  const auto midnight = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(midnight);
  const auto seconds = static_cast<std::int32_t>((time - midnight).count());
  Text written;
  const auto append = [&written](std::int32_t number, TextView before) {
    written.append(before).append(number < 10 ? u"0" : u"");
    AppendInt(written, number);
  };
  AppendPaddedInt(written, static_cast<int>(date.year()));
  append(static_cast<std::int32_t>(static_cast<unsigned>(date.month())), u"-");
  append(static_cast<std::int32_t>(static_cast<unsigned>(date.day())), u"-");
  append(seconds / 3600, u"T");
  append(seconds / 60 % 60, u":");
  append(seconds % 60, u":");
  return written + u"Z";
}

}  // namespace jotlets

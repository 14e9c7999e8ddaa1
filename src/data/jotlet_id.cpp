#include "data/jotlet_id.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace jotlets {
namespace {

constexpr std::size_t kLongestName = 200;
constexpr std::size_t kLongestPath = 32767;

// Device names are reserved with any extension, and with blanks before it.
bool IsDeviceName(TextView name) {
  TextView stem = name.substr(0, name.find(u'.'));
  stem = TrimBlanks(stem);
  constexpr std::array<TextView, 6> kDevices = {u"CON", u"PRN", u"AUX", u"NUL", u"CONIN$", u"CONOUT$"};
  if (std::any_of(kDevices.begin(), kDevices.end(), [&](TextView d) { return EqualIgnoreCase(stem, d); })) {
    return true;
  }
  if (stem.size() != 4 || !(StartsWithIgnoreCase(stem, u"COM") || StartsWithIgnoreCase(stem, u"LPT")))
    return false;
  // Windows takes the superscript digits one to three for port numbers as well.
  return TextView(u"0123456789\u00B9\u00B2\u00B3").find(stem[3]) != TextView::npos;
}

}  // namespace

bool IsPlainFileName(TextView text) {
  if (text.empty() || text.size() > kLongestName) return false;
  if (text.front() == u' ' || text.back() == u' ' || text.back() == u'.') return false;
  const bool foreign = std::any_of(text.begin(), text.end(), [](char16_t unit) {
    return unit < 0x20 || TextView(u"<>:\"/\\|?*").find(unit) != TextView::npos;
  });
  return !foreign && !IsDeviceName(text);
}

bool IsPathOfFile(TextView text) {
  if (text.size() < 3 || text.size() > kLongestPath) return false;
  const bool onDrive = text[0] < 0x80 && std::isalpha(text[0]) != 0 && text[1] == u':' && text[2] == u'\\';
  const bool onNetwork = text.starts_with(u"\\\\") && TextView(u"\\.?").find(text[2]) == TextView::npos;
  if (!onDrive && !onNetwork) return false;
  text.remove_prefix(2);
  return std::none_of(text.begin(), text.end(), [](char16_t unit) {
    return unit < 0x20 || TextView(u"<>:\"/|?*").find(unit) != TextView::npos;
  });
}

bool IsAddressableId(TextView id) { return IsPlainFileName(id) && id.find_first_of(u" ,") == TextView::npos; }

Text IdSource::Next(const LocalTime& now) {
  if (++counter_ > 10000) counter_ = 10;
  Text id;
  for (const int part : {now.hour, now.minute, now.second}) AppendHex(id, static_cast<std::uint32_t>(part));
  AppendHex(id, instance_);
  AppendHex(id, counter_);
  return id;
}

}  // namespace jotlets

// Times as other programs write them into their files.
#pragma once

#include <cstdint>
#include <optional>

#include "base/text.h"

namespace jotlets {

/// Seconds since 1970 UTC of "20201010T101010Z", "2020-10-10", "2020-10-10 10:10",
/// "2020-10-10T10:10:10+02:00" or "Sat, 10 Oct 2020 10:10:10 GMT". A time without a zone counts as UTC.
/// Nothing for any other text, and for years before 1970 or after 9999.
std::optional<std::int64_t> ParseWrittenTime(TextView text);

/// "2020-10-10T10:10:10Z" of seconds since 1970 UTC.
Text WrittenTime(std::int64_t utc);

}  // namespace jotlets

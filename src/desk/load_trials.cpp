#include "desk/load_trials.h"

#include <charconv>
#include <string>

#include "data/loading.h"

namespace jotlets {
namespace {

// Sixteen hexadecimal digits and a line feed.
constexpr std::size_t kLine = 17;
constexpr std::size_t kMaxKept = 1000 * kLine;

std::string LineOf(Fingerprint content) {
  std::string line(kLine - 1, '0');
  line += '\n';
  for (std::size_t at = kLine - 1; at-- > 0; content >>= 4) line[at] = "0123456789abcdef"[content & 15];
  return line;
}

}  // namespace

void LoadTrials::Open() {
  const std::string bytes = file_.Read().bytes;
  for (; kept_ + kLine <= bytes.size() && kept_ < kMaxKept; kept_ += kLine) {
    Fingerprint content = 0;
    const char* end = bytes.data() + kept_ + kLine - 1;
    const auto [stop, error] = std::from_chars(bytes.data() + kept_, end, content, 16);
    if (error != std::errc() || stop != end || *end != '\n') break;
    failed_.insert(content);
  }
  file_.Truncate(kept_);
}

// What a new note begins with is nobody's fault: it was killed from outside, and marked, it would mark all
// new notes.
bool LoadTrials::HasFailed(std::string_view content) const {
  return content != kPlaceholderRtf && failed_.contains(FingerprintOf(content));
}

void LoadTrials::Begin(std::string_view content) { file_.Append(LineOf(FingerprintOf(content))); }

void LoadTrials::End() { file_.Truncate(kept_); }

}  // namespace jotlets

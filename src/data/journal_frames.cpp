#include "data/journal_frames.h"

#include <zlib.h>

#include <algorithm>

namespace jotlets {
namespace {

constexpr std::size_t kFront = 8;  // length and checksum
constexpr std::size_t kFixedBody = 8 + 1 + 8 + 8 + 4 + 4 + 2;
constexpr std::size_t kLongestId = 0xFFFF;
constexpr std::size_t kLargestBegin = 4096;

template <typename Number>
void Put(std::string& out, Number number) {
  for (std::size_t byte = 0; byte < sizeof number; ++byte)
    out.push_back(static_cast<char>(static_cast<std::uint64_t>(number) >> (8 * byte) & 0xFF));
}

template <typename Number>
Number Take(std::string_view& bytes) {
  std::uint64_t number = 0;
  for (std::size_t byte = 0; byte < sizeof(Number); ++byte)
    number |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[byte])) << (8 * byte);
  bytes.remove_prefix(sizeof(Number));
  return static_cast<Number>(number);
}

std::uint32_t Checksum(std::string_view bytes) {
  return static_cast<std::uint32_t>(
      crc32_z(0, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()));
}

bool IsKind(std::uint8_t kind) {
  return kind >= static_cast<std::uint8_t>(FrameKind::kBegin) &&
         kind <= static_cast<std::uint8_t>(FrameKind::kPicture);
}

}  // namespace

Fingerprint FingerprintOf(std::string_view bytes) {
  // The lowest bit of the length's half is set, so that no file has the number of a missing one.
  return (static_cast<std::uint64_t>(Checksum(bytes)) << 32) | ((bytes.size() << 1 | 1) & 0xFFFFFFFF);
}

void AppendFrame(std::string& out, const JournalFrame& frame, std::uint64_t sequence) {
  const std::string id = ToUtf8(frame.id).substr(0, kLongestId);
  const std::size_t front = out.size();
  out.reserve(front + kFront + kFixedBody + id.size() + frame.payload.size());
  Put<std::uint32_t>(out, static_cast<std::uint32_t>(kFixedBody + id.size() + frame.payload.size()));
  Put<std::uint32_t>(out, 0);
  Put(out, sequence);
  Put(out, static_cast<std::uint8_t>(frame.kind));
  Put(out, frame.base);
  Put(out, frame.result);
  Put(out, frame.head);
  Put(out, frame.tail);
  Put(out, static_cast<std::uint16_t>(id.size()));
  out.append(id).append(frame.payload);
  std::string checksum;
  Put(checksum, Checksum(std::string_view(out).substr(front + kFront)));
  out.replace(front + sizeof(std::uint32_t), checksum.size(), checksum);
}

std::optional<JournalFrame> JournalReader::Next() {
  if (rest_.size() < kFront) return std::nullopt;
  std::string_view at = rest_;
  const auto length = Take<std::uint32_t>(at);
  const auto checksum = Take<std::uint32_t>(at);
  // Cut short by a kill or a power failure, which leaves zeros at times.
  // The first frame is a small one: nothing that was cut begins like this.
  if (!begun_ && length > kLargestBegin) damaged_ = true;
  if (length > at.size() || rest_.find_first_not_of('\0') == std::string_view::npos) return std::nullopt;
  const std::string_view body = at.substr(0, length);
  std::optional<JournalFrame> frame;
  if (length >= kFixedBody && Checksum(body) == checksum) frame = ParseBody(body);
  if (!frame) {
    damaged_ = true;
    return std::nullopt;
  }
  rest_ = at.substr(length);
  length_ += kFront + length;
  return frame;
}

std::optional<JournalFrame> JournalReader::ParseBody(std::string_view body) {
  const auto sequence = Take<std::uint64_t>(body);
  const auto kind = Take<std::uint8_t>(body);
  if (!IsKind(kind) || (begun_ && sequence != sequence_)) return std::nullopt;
  JournalFrame frame;
  frame.kind = static_cast<FrameKind>(kind);
  if (!begun_ && frame.kind != FrameKind::kBegin) return std::nullopt;
  frame.base = Take<Fingerprint>(body);
  frame.result = Take<Fingerprint>(body);
  frame.head = Take<std::uint32_t>(body);
  frame.tail = Take<std::uint32_t>(body);
  const auto idBytes = Take<std::uint16_t>(body);
  if (idBytes > body.size()) return std::nullopt;
  frame.id = FromUtf8(body.substr(0, idBytes));
  frame.payload = body.substr(idBytes);
  begun_ = true;
  sequence_ = sequence + 1;
  return frame;
}

ContentChange CompareContents(std::string_view before, std::string_view after) {
  const std::size_t shorter = std::min(before.size(), after.size());
  std::size_t head = 0;
  while (head < shorter && before[head] == after[head]) ++head;
  std::size_t tail = 0;
  while (tail < shorter - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) ++tail;
  return {static_cast<std::uint32_t>(head), static_cast<std::uint32_t>(tail)};
}

}  // namespace jotlets

#include "data/xml_reader.h"

#include <expat.h>

#include <algorithm>
#include <utility>

namespace jotlets {
namespace {

constexpr std::size_t kPiece = 64 << 10;
// What the parser must hold of a file: the elements that are open, and the tag that it reads.
constexpr std::size_t kDeepest = 1000;
constexpr std::size_t kLongestTag = 8 << 20;
// Entities that stand for others: far less than what the library lets pass by itself.
constexpr float kMaximumGrowth = 4;

}  // namespace

struct XmlReader::Calls {
  static XmlReader& Of(void* reader) { return *static_cast<XmlReader*>(reader); }

  static void Begin(void* data, const XML_Char* name, const XML_Char** attributes) {
    XmlReader& reader = Of(data);
    if (++reader.depth_ > kDeepest) return reader.Fail(u"its elements are too deep inside each other");
    reader.OnBegin(name, Attributes(attributes));
  }
  static void End(void* data, const XML_Char* name) {
    XmlReader& reader = Of(data);
    if (reader.depth_-- <= kDeepest) reader.OnEnd(name);
  }
  static void Words(void* data, const XML_Char* words, int length) {
    Of(data).OnWords({words, static_cast<std::size_t>(length)});
  }
};

std::string_view XmlReader::Attributes::Find(std::string_view name) const {
  for (const char* const* row = rows_; *row != nullptr; row += 2)
    if (*row == name) return row[1];
  return {};
}

void XmlReader::Freer::operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }

XmlReader::XmlReader(std::string bytes) : bytes_(std::move(bytes)), parser_(XML_ParserCreate(nullptr)) {
  if (parser_ == nullptr) return;
  XML_SetUserData(parser_.get(), this);
  XML_SetElementHandler(parser_.get(), Calls::Begin, Calls::End);
  XML_SetCharacterDataHandler(parser_.get(), Calls::Words);
  XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser_.get(), kMaximumGrowth);
}

XmlReader::~XmlReader() = default;

int XmlReader::PercentRead() const {
  return bytes_.empty() ? 100 : static_cast<int>(at_ * 100 / bytes_.size());
}

bool XmlReader::ReadPiece() {
  if (!fault_.empty() || ended_) return false;
  if (parser_ == nullptr) return Fail(u"out of memory"), false;
  const std::size_t length = std::min(kPiece, bytes_.size() - at_);
  const bool last = at_ + length == bytes_.size();
  const XML_Status status =
      XML_Parse(parser_.get(), bytes_.data() + at_, static_cast<int>(length), last ? 1 : 0);
  at_ += length;
  if (!fault_.empty()) return false;
  if (status != XML_STATUS_OK) {
    Fail(FromUtf8(XML_ErrorString(XML_GetErrorCode(parser_.get()))));
  } else if (at_ - static_cast<std::size_t>(std::max<XML_Index>(XML_GetCurrentByteIndex(parser_.get()), 0)) >
             kLongestTag) {
    Fail(u"one of its tags is over 8 MB");
  }
  ended_ = last;
  return fault_.empty() && !ended_;
}

void XmlReader::Fail(Text why) {
  if (!fault_.empty()) return;
  fault_ = std::move(why);
  if (parser_ == nullptr) return;
  fault_ += u" (line " + IntText(static_cast<std::int64_t>(XML_GetCurrentLineNumber(parser_.get()))) + u")";
  XML_StopParser(parser_.get(), XML_FALSE);
}

}  // namespace jotlets

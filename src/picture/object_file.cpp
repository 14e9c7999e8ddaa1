#include "picture/object_file.h"

#include <bit>
#include <utility>

#include "base/little_endian.h"
#include "picture/picture.h"

namespace jotlets {
namespace {

constexpr std::string_view kMark = "JDR1";
constexpr std::size_t kMaxObjects = 10'000;
constexpr std::size_t kMaxAllPoints = 1'000'000;

// FNV-1a of 64 bits: tells files apart that belong together or not, not a defence against anybody.
std::uint64_t HashOf(std::string_view bytes) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211U;
  return hash;
}

class Writer {
 public:
  void Number(std::uint64_t number, int bytes) {
    for (int i = 0; i < bytes; ++i) out_.push_back(static_cast<char>(number >> 8 * i & 0xFF));
  }
  void Real(double real) { Number(std::bit_cast<std::uint64_t>(real), 8); }
  void Words(TextView text) {
    Number(text.size(), 4);
    for (const char16_t unit : text) Number(unit, 2);
  }
  void Bytes(std::string_view bytes) {
    Number(bytes.size(), 4);
    out_.append(bytes);
  }
  std::string Written() && { return std::move(out_); }

 private:
  std::string out_{kMark};
};

// Reads behind the end give 0 and are remembered.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  std::uint64_t Number(std::size_t length) {
    const std::string_view part = Part(length);
    std::uint64_t number = 0;
    for (std::size_t i = part.size(); i-- > 0;) number = number << 8 | static_cast<unsigned char>(part[i]);
    return number;
  }
  double Real() { return std::bit_cast<double>(Number(8)); }
  std::int32_t Whole() { return static_cast<std::int32_t>(Number(4)); }
  Text Words() {
    const std::uint64_t length = Number(4);
    Text text;
    if (length > kMaxTextLength || length * 2 > bytes_.size()) return Fail(), text;
    for (std::uint64_t i = 0; i < length; ++i) text.push_back(static_cast<char16_t>(Number(2)));
    return text;
  }
  std::string_view Bytes() { return Part(Number(4)); }
  // So many entries follow, of at least so many bytes each.
  std::size_t Count(std::size_t maximum, std::size_t bytesOfOne) {
    const std::uint64_t count = Number(4);
    if (count > maximum || count * bytesOfOne > bytes_.size()) Fail();
    return isGood_ ? static_cast<std::size_t>(count) : 0;
  }
  void Fail() {
    isGood_ = false;
    bytes_ = {};
  }
  bool IsGood() const { return isGood_; }
  bool IsWhole() const { return isGood_ && bytes_.empty(); }

 private:
  std::string_view Part(std::uint64_t length) {
    if (length > bytes_.size()) Fail();
    if (!isGood_) return {};
    const std::string_view part = bytes_.substr(0, static_cast<std::size_t>(length));
    bytes_.remove_prefix(part.size());
    return part;
  }

  std::string_view bytes_;
  bool isGood_ = true;
};

void Write(Writer& out, const DrawnObject& object) {
  out.Number(static_cast<std::uint64_t>(object.kind), 1);
  out.Number(static_cast<std::uint64_t>(object.orientation), 1);
  out.Number(object.filled ? 1 : 0, 1);
  out.Number(object.colour.r, 1);
  out.Number(object.colour.g, 1);
  out.Number(object.colour.b, 1);
  out.Number(static_cast<std::uint32_t>(object.number), 4);
  out.Real(object.width);
  out.Real(object.textSize);
  out.Words(object.text);
  out.Words(object.font);
  out.Number(object.points.size(), 4);
  for (const StrokePoint& point : object.points) {
    out.Real(point.place.x);
    out.Real(point.place.y);
    out.Real(point.pressure);
  }
}

DrawnObject ReadObject(Reader& in) {
  DrawnObject object;
  const std::uint64_t kind = in.Number(1);
  const std::uint64_t orientation = in.Number(1);
  if (kind >= kObjectKinds || orientation < 1 || orientation > 8) in.Fail();
  object.kind = static_cast<ObjectKind>(kind);
  object.orientation = static_cast<Orientation>(orientation);
  object.filled = in.Number(1) != 0;
  object.colour.r = static_cast<std::uint8_t>(in.Number(1));
  object.colour.g = static_cast<std::uint8_t>(in.Number(1));
  object.colour.b = static_cast<std::uint8_t>(in.Number(1));
  object.number = in.Whole();
  object.width = in.Real();
  object.textSize = in.Real();
  object.text = in.Words();
  object.font = in.Words();
  object.points.resize(in.Count(kMaxPoints, 24));
  for (StrokePoint& point : object.points) point = {{in.Real(), in.Real()}, in.Real()};
  if (!IsDrawable(object)) in.Fail();
  return object;
}

std::optional<std::vector<DrawnObject>> ReadObjects(Reader& in) {
  std::vector<DrawnObject> objects;
  std::size_t points = 0;
  for (std::size_t left = in.Count(kMaxObjects, 34); left > 0 && in.IsGood(); --left) {
    objects.push_back(ReadObject(in));
    objects.back().id = static_cast<ObjectId>(objects.size());
    points += objects.back().points.size();
    if (points > kMaxAllPoints) in.Fail();
  }
  if (!in.IsGood()) return std::nullopt;
  return objects;
}

struct Belonging {
  std::uint64_t hash = 0;
  std::uint64_t size = 0;
};

// What stands before the objects; whether the bytes begin as such a file does is told by the reader.
Belonging ReadHead(Reader& in) {
  if (in.Number(4) != LittleEndian32(kMark, 0)) in.Fail();
  return {in.Number(8), in.Number(8)};
}

// The rectangles of the picture below the objects, apart from one another.
std::vector<Rect> AreasBelow(const std::vector<DrawnObject>& objects, Size size) {
  std::vector<Rect> areas;
  for (const DrawnObject& object : objects) {
    Rect area = CommonPart(BoundsOf(object), WholeOf(size));
    for (std::size_t at = 0; at < areas.size();) {
      if (!Overlap(areas[at], area)) {
        ++at;
        continue;
      }
      area = Enclosing(area, areas[at]);
      areas.erase(areas.begin() + static_cast<std::ptrdiff_t>(at));
      at = 0;
    }
    if (!IsEmptyRect(area)) areas.push_back(area);
  }
  return areas;
}

// Lays the pixels of before into the picture that shows the objects. None of them may be larger than it is,
// and all together no larger than that: every byte of the file is worth at most so much memory.
bool ReadAreas(Reader& in, Picture& picture) {
  std::int64_t left = std::int64_t{picture.size.width} * picture.size.height;
  for (std::size_t areas = in.Count(kMaxObjects, 12); areas > 0 && in.IsGood(); --areas) {
    const Point at{in.Whole(), in.Whole()};
    const auto part = DecodePng(in.Bytes(), left);
    if (!part || CommonPart(RectAt(at, part->size), WholeOf(picture.size)) != RectAt(at, part->size))
      return false;
    left -= std::int64_t{part->size.width} * part->size.height;
    PutPart(picture, at, *part);
  }
  return in.IsWhole();
}

}  // namespace

PictureFiles FilesOf(const PictureParts& parts, const LetterPainter& letters) {
  Picture shown = parts.base;
  for (const DrawnObject& object : parts.objects) Draw(object, letters, shown);
  PictureFiles files{EncodePng(shown), {}};
  if (files.png.empty() || parts.objects.empty() || parts.objects.size() > kMaxObjects) return files;
  Writer out;
  out.Number(HashOf(files.png), 8);
  out.Number(files.png.size(), 8);
  out.Number(parts.objects.size(), 4);
  for (const DrawnObject& object : parts.objects) Write(out, object);
  const std::vector<Rect> areas = AreasBelow(parts.objects, parts.base.size);
  out.Number(areas.size(), 4);
  for (const Rect& area : areas) {
    out.Number(static_cast<std::uint32_t>(area.left), 4);
    out.Number(static_cast<std::uint32_t>(area.top), 4);
    out.Bytes(EncodePng(PartOf(parts.base, area)));
  }
  files.objects = std::move(out).Written();
  return files;
}

std::optional<std::vector<DrawnObject>> ObjectsOfFile(std::string_view objects) {
  Reader in(objects);
  ReadHead(in);
  return ReadObjects(in);
}

std::optional<PictureParts> PartsOf(std::string_view png, std::string_view objects) {
  auto shown = DecodePng(png);
  if (!shown) return std::nullopt;
  Reader in(objects);
  const Belonging belonging = ReadHead(in);
  PictureParts parts{*std::move(shown), {}};
  if (!in.IsGood() || belonging.size != png.size() || belonging.hash != HashOf(png)) return parts;
  const auto read = ReadObjects(in);
  Picture base = parts.base;
  if (read && ReadAreas(in, base)) parts = {std::move(base), *read};
  return parts;
}

}  // namespace jotlets

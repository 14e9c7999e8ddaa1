// Any bytes as the file of the objects of a picture: as they are, and made to belong to one. What is read can
// be drawn, and is read back when it was written.
#include "fuzz.h"
#include "picture/object_file.h"
#include "picture/picture.h"

namespace {

using namespace jotlets;

class NoLetters final : public LetterPainter {
 public:
  LetterMask Paint(const LetterLook&) const override { return {}; }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string kPng = EncodePng(BlankPicture({64, 48}));
  static const std::string kHead = [] {
    DrawnObject line;
    line.kind = ObjectKind::kLine;
    line.points = {{{1, 1}}, {{9, 9}}};
    const PictureParts parts{BlankPicture({64, 48}), {line}};
    // Of a picture that shows nothing, so that it is the one above.
    PictureParts none = parts;
    none.objects[0].points = {{{-90, -90}}, {{-80, -80}}};
    return FilesOf(none, NoLetters()).objects.substr(0, 20);
  }();
  const std::string_view bytes = Bytes(data, size);
  const auto objects = ObjectsOfFile(bytes);
  std::string belonging = kHead;
  if (bytes.size() > 20) belonging += bytes.substr(20);
  const auto parts = PartsOf(kPng, belonging);
  Check(parts && parts->base.size == Size{64, 48});
  for (const DrawnObject& object : parts->objects) Check(IsDrawable(object));
  if (!objects || objects->size() > 20) return 0;
  std::size_t points = 0;
  for (const DrawnObject& object : *objects) points += object.points.size();
  if (points > 200) return 0;
  const PictureFiles files = FilesOf({BlankPicture({64, 48}), *objects}, NoLetters());
  const auto again = PartsOf(files.png, files.objects);
  Check(again && again->objects == *objects);
  return 0;
}

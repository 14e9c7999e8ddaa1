// Any bytes as the text of a skin: what was read lies within its bounds and can be resolved in any window.
#include "data/text_file.h"
#include "fuzz.h"
#include "skin/skin_text.h"

namespace {

using namespace jotlets;

void CheckRect(const Rect& rect) {
  for (const std::int32_t edge : {rect.left, rect.top, rect.right, rect.bottom})
    Check(edge >= -kFarthestCoordinate && edge <= kFarthestCoordinate);
  Check(rect.Width() >= 0 && rect.Height() >= 0);
}

void CheckLength(std::int32_t length) { Check(length >= 0 && length <= kLongestLength); }

void CheckElement(const SkinElement& e, const CoordinateSpace& space) {
  CheckRect(ResolvePlaceAndExtent(e.place, e.extent.value_or(CoordinatePoint()), space));
  CheckRect(ResolvePlaceAndSize(e.place, e.size.value_or(Size()), space));
  if (e.topLeft && e.bottomRight) CheckRect(ResolveCorners({*e.topLeft, *e.bottomRight}, space));
  for (const std::int32_t length : {e.width, e.height, e.point, e.size ? e.size->width : 0})
    CheckLength(length);
  Check(e.action == ActionFromName(ActionName(e.action)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const SkinData skin = ParseSkin(DecodeTextFile(Bytes(data, size), Latin1()).text);
  for (const std::int32_t length : {skin.top, skin.bottom, skin.left, skin.right, skin.rolledHeight,
                                    skin.minimumWidth, skin.minimumHeight, skin.minimumThumbTrackHeight})
    CheckLength(length);
  Check(skin.elements.size() <= kMaxElements);
  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  for (const CoordinateSpace& space : {CoordinateSpace{{200, 100}, {190, 30, 197, 60}},
                                       CoordinateSpace{{kMax, kMax}, {-kMax, -kMax, kMax, kMax}}}) {
    if (skin.titlebar) CheckRect(ResolveCorners(*skin.titlebar, space));
    if (skin.scrollbar) CheckRect(ResolveTrack(*skin.scrollbar, space));
    for (const Coordinate& number : skin.region) ResolvePoint({number, number}, space);
    for (const SkinElement& element : skin.elements) CheckElement(element, space);
  }
  return 0;
}

#include "skin/skin_contrast.h"

#include <algorithm>

#include "skin/skin_text.h"
#include "skin/skin_view.h"

namespace jotlets {
namespace {

constexpr std::int32_t kFrameWidth = 3;  // the widest of those below
constexpr std::int32_t kBarLineWidth = 2;

constexpr TextView kFrame =
    u"[hstrip]\nplace=0,0\nextent=4000,2\nstriptype=2\ntint=ink\nfocus=0\n"
    u"[hstrip]\nplace=0,-2\nextent=4000,2\nstriptype=2\ntint=ink\nfocus=0\n"
    u"[vstrip]\nplace=0,0\nextent=2,4000\nstriptype=2\ntint=ink\nfocus=0\n"
    u"[vstrip]\nplace=-2,0\nextent=2,4000\nstriptype=2\ntint=ink\nfocus=0\n"
    u"[hstrip]\nplace=0,0\nextent=4000,3\nstriptype=2\ntint=accent\nfocus=1\n"
    u"[hstrip]\nplace=0,-3\nextent=4000,3\nstriptype=2\ntint=accent\nfocus=1\n"
    u"[vstrip]\nplace=0,0\nextent=3,4000\nstriptype=2\ntint=accent\nfocus=1\n"
    u"[vstrip]\nplace=-3,0\nextent=3,4000\nstriptype=2\ntint=accent\nfocus=1\n";

constexpr TextView kFormatBarLine =
    u"[hstrip]\nplace=0,0\nextent=4000,2\nstriptype=2\ntint=ink\ncondition=formatbar\nconditionvalue=1\n"
    u"[hstrip]\nplace=0,0\nextent=4000,2\nstriptype=2\ntint=ink\ncondition=picturebar\nconditionvalue=1\n";

constexpr TextView kBarLine = u"[hstrip]\nplace=0,0\nextent=4000,2\nstriptype=2\ntint=ink\nrolled=0\n";

bool IsShape(const SkinElement& element) {
  return element.kind == ElementKind::kButton || element.kind == ElementKind::kIndicator;
}

// The thumb of the scroll bar is a fill that tells something; in the bar for formatting the buttons do.
bool IsFill(const SkinElement& element) {
  const bool area = element.kind == ElementKind::kTilearea || element.kind == ElementKind::kHstrip ||
                    element.kind == ElementKind::kVstrip;
  const std::optional<SkinState> state = SkinStateFromName(element.condition);
  return area && (element.condition.empty() || state == SkinState::kFormatBar ||
                  state == SkinState::kPictureBar || state == SkinState::kSounding);
}

void Append(std::vector<SkinElement>& elements, TextView text) {
  const SkinData parsed = ParseSkin(text);
  elements.insert(elements.end(), parsed.elements.begin(), parsed.elements.end());
}

}  // namespace

bool CanShowContrast(const SkinData& skin) {
  return std::ranges::all_of(skin.elements, [](const SkinElement& element) {
    return !IsShape(element) || element.tint || element.fill;
  });
}

SkinData ContrastSkin(SkinData skin) {
  std::erase_if(skin.elements, IsFill);
  for (SkinElement& element : skin.elements) {
    if (element.tint != SkinTint::kPen) element.tint = SkinTint::kInk;
    element.alpha.reset();
    element.shade.reset();
    element.format.transparent = true;
    // What stands behind a shape under the mouse is drawn in the system's colour.
    element.sourceRollover = {};
  }
  if (skin.titlebar) {
    Append(skin.elements, kBarLine);
    skin.elements.back().place.y = skin.titlebar->bottomRight.y;
  }
  if (skin.formatBar > 0) {
    const std::size_t first = skin.elements.size();
    Append(skin.elements, kFormatBarLine);
    for (std::size_t at = first; at < skin.elements.size(); ++at)
      skin.elements[at].place.y.value = -skin.formatBar;
  }
  // A picture leaves the lines to be seen.
  if (skin.pictureFrame) {
    skin.pictureFrame = kFrameWidth;
    if (skin.titlebar && skin.titlebar->bottomRight.y.value > 0)
      skin.titlebar->bottomRight.y.value += kBarLineWidth;
  }
  Append(skin.elements, kFrame);
  skin.region.clear();
  skin.transparent.reset();
  skin.drawOnRtfBg = false;
  return skin;
}

}  // namespace jotlets

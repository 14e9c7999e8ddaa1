#include "note/win/colour_menu.h"

#include <algorithm>

#include "note/papers.h"
#include "res/resource.h"
#include "ui/popup_menu.h"
#include "ui/system_choosers.h"

namespace jotlets {
namespace {

constexpr UINT kPapersEntry = 1;
constexpr UINT kRecentEntry = 2;

std::int32_t NumberOf(Colour colour) { return ColourNumber(colour.r, colour.g, colour.b); }

std::vector<Swatch> RecentSwatches(const Options& options) {
  std::vector<Swatch> swatches;
  for (const std::int32_t number : options.recentColours) {
    if (number < 0) continue;
    const Colour colour = ColourOfNumber(number);
    const Text name = IntText(colour.r) + u", " + IntText(colour.g) + u", " + IntText(colour.b);
    swatches.push_back({Swatch::Kind::kColour, colour, name});
  }
  return swatches;
}

std::optional<std::size_t> PlaceOf(const std::vector<Swatch>& swatches, Colour colour) {
  const auto at = std::ranges::find_if(swatches, [&](const Swatch& swatch) {
    return swatch.kind == Swatch::Kind::kColour && swatch.colour == colour;
  });
  if (at == swatches.end()) return std::nullopt;
  return static_cast<std::size_t>(at - swatches.begin());
}

}  // namespace

std::vector<Swatch> PaperSwatches(const Resources& resources) {
  std::vector<Swatch> swatches;
  swatches.reserve(kPapers.size() + 1);
  for (std::size_t i = 0; i < kPapers.size(); ++i)
    swatches.push_back(
        {Swatch::Kind::kColour, kPapers[i], resources.String(IDS_PAPER + static_cast<UINT>(i))});
  swatches.push_back({Swatch::Kind::kOthers, {}, resources.String(IDS_PAPER_MORE)});
  return swatches;
}

std::optional<Colour> ChooseColour(const Resources& resources, const Options& options, HWND owner, Point at,
                                   Colour current) {
  const std::vector<Swatch> papers = PaperSwatches(resources);
  const std::vector<Swatch> recent = RecentSwatches(options);
  const Text spoken = ReplaceAll(resources.String(IDS_SWATCH), u"%c", resources.String(IDS_PAPERS));
  SwatchRow paperRow(spoken, papers, PlaceOf(papers, current));
  std::vector<SwatchRow*> rows = {&paperRow};
  const UniqueMenu menu(CreatePopupMenu());
  paperRow.AppendTo(menu.get(), kPapersEntry, true);
  std::optional<SwatchRow> recentRow;
  if (!recent.empty()) {
    recentRow.emplace(spoken, recent, PlaceOf(recent, current));
    recentRow->AppendTo(menu.get(), kRecentEntry, true);
    rows.push_back(&*recentRow);
  }
  // The menu takes the keys of its owner while it is open: the papers are ready for Left and Right.
  PostMessageW(owner, WM_KEYDOWN, VK_DOWN, 0);
  const UINT chosen = ChooseFromMenu(resources.Look(), menu.get(), at, owner, rows);
  if (chosen == kRecentEntry) return recent[recentRow->Marked()].colour;
  if (chosen != kPapersEntry) return std::nullopt;
  if (paperRow.Marked() < kPapers.size()) return kPapers[paperRow.Marked()];
  return ChooseSystemColour(owner, current);
}

bool RememberColour(Options& options, Colour colour) {
  auto& recent = options.recentColours;
  const std::int32_t number = NumberOf(colour);
  if (PaperOf(colour) || recent.front() == number) return false;
  // One that is there already comes to the front; else the last one goes.
  auto at = std::ranges::find(recent, number);
  if (at == recent.end()) --at;
  std::rotate(recent.begin(), at, at + 1);
  recent.front() = number;
  return true;
}

}  // namespace jotlets

#include "manage/win/category_menu.h"

#include <array>

#include "base/win/wide.h"
#include "note/papers.h"
#include "res/resource.h"
#include "ui/drawn_menu.h"
#include "ui/popup_menu.h"
#include "ui/swatch_row.h"

namespace jotlets {
namespace {

constexpr UINT kRename = 1;
constexpr UINT kColours = 2;
constexpr UINT kSigns = 3;

// By their numbers in the store: more are added behind. Their names are the texts from IDS_CATEGORY_SIGN on.
constexpr std::array kSignIcons = {Icon::kTag,     Icon::kStar, Icon::kFolder,  Icon::kCalendar,
                                   Icon::kFriends, Icon::kMail, Icon::kPicture, Icon::kFile,
                                   Icon::kLock,    Icon::kWand};

std::vector<Swatch> ColourSwatches(const Resources& resources) {
  std::vector<Swatch> swatches = {{Swatch::Kind::kNothing, {}, resources.String(IDS_NO_COLOUR)}};
  for (std::size_t i = 0; i < kPapers.size(); ++i)
    swatches.push_back(
        {Swatch::Kind::kColour, kPapers[i], resources.String(IDS_PAPER + static_cast<UINT>(i))});
  return swatches;
}

std::vector<Swatch> SignSwatches(const Resources& resources, const CategoryLook& now) {
  std::vector<Swatch> swatches;
  for (std::size_t i = 0; i < kSignIcons.size(); ++i)
    swatches.push_back({Swatch::Kind::kSign,
                        {},
                        resources.String(IDS_CATEGORY_SIGN + static_cast<UINT>(i)),
                        kSignIcons[i],
                        SignOf(now) == kSignIcons[i]});
  return swatches;
}

}  // namespace

Icon SignOf(const CategoryLook& look) {
  const auto number = static_cast<std::size_t>(look.sign);
  return number < kSignIcons.size() ? kSignIcons[number] : kSignIcons.front();
}

CategoryChoice ChooseForCategory(const Resources& resources, HWND owner, Point at, const CategoryLook& now) {
  const auto spoken = [&](UINT name) {
    return ReplaceAll(resources.String(IDS_SWATCH), u"%c", resources.String(name));
  };
  std::optional<std::size_t> current;
  if (!now.colour) current = 0;
  if (const auto paper = now.colour ? PaperOf(*now.colour) : std::nullopt) current = 1 + *paper;
  SwatchRow colours(spoken(IDS_CATEGORY_COLOUR), ColourSwatches(resources), current);
  SwatchRow signs(spoken(IDS_CATEGORY_SIGNS), SignSwatches(resources, now), {});
  const UniqueMenu menu(CreatePopupMenu());
  colours.AppendTo(menu.get(), kColours, true);
  signs.AppendTo(menu.get(), kSigns, true);
  AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
  AppendMenuW(menu.get(), MF_ENABLED, kRename, Wide(resources.String(IDS_RENAME_CATEGORY) + u"\tF2"));
  SetLastMenuIcon(menu.get(), Icon::kPencil);
  SwatchRow* const rows[] = {&colours, &signs};
  CategoryChoice choice;
  CategoryLook look = now;
  switch (ChooseFromMenu(resources.Look(), menu.get(), at, owner, rows)) {
    case kRename: choice.rename = true; return choice;
    case kColours:
      look.colour = colours.Marked() == 0 ? std::nullopt : std::optional(kPapers[colours.Marked() - 1]);
      break;
    case kSigns: look.sign = static_cast<std::int32_t>(signs.Marked()); break;
    default: return choice;
  }
  choice.look = look;
  return choice;
}

}  // namespace jotlets

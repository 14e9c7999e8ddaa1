#include <algorithm>
#include <array>
#include <iterator>

#include "settings/setting.h"

namespace jotlets {
namespace {

using O = Options;
using enum SettingGroup;
using enum SettingControl;

template <auto Member>
constexpr SettingAccess kNumberOf{
    [](const O& o) {
      return SettingValue{static_cast<std::int32_t>(o.*Member), {}};
    },
    [](O& o, const SettingValue& value) {
      if constexpr (std::is_same_v<std::remove_cvref_t<decltype(o.*Member)>, bool>) {
        o.*Member = value.number == 1;
      } else {
        o.*Member = value.number;
      }
    }};

// One of the numbers of an option that has several.
template <auto Member, std::size_t part>
constexpr SettingAccess kPartOf{[](const O& o) {
                                  return SettingValue{(o.*Member)[part], {}};
                                },
                                [](O& o, const SettingValue& value) { (o.*Member)[part] = value.number; }};

template <auto Member>
constexpr SettingAccess kTextOf{[](const O& o) {
                                  return SettingValue{0, o.*Member};
                                },
                                [](O& o, const SettingValue& value) { o.*Member = value.text; }};

template <std::size_t index>
constexpr SettingAccess kHotKeyOf{
    [](const O& o) {
      return SettingValue{HotKeyNumber(o.hooks[index]), {}};
    },
    [](O& o, const SettingValue& value) { o.hooks[index] = HotKeyOfNumber(value.number); }};

// A bar would end the name.
constexpr SettingAccess kSearchName{
    [](const O& o) {
      return SettingValue{0, o.google.first};
    },
    [](O& o, const SettingValue& value) { o.google.first = ReplaceAll(value.text, u"|", u" "); }};
constexpr SettingAccess kSearchAddress{[](const O& o) {
                                         return SettingValue{0, o.google.second};
                                       },
                                       [](O& o, const SettingValue& value) { o.google.second = value.text; }};

constexpr SettingAccess kWakeSoundFile{[](const O& o) {
                                         return SettingValue{0, o.alarm.text};
                                       },
                                       [](O& o, const SettingValue& value) { o.alarm.text = value.text; }};
constexpr SettingAccess kWakeSoundProposed{
    [](const O& o) {
      return SettingValue{o.alarm.number, {}};
    },
    [](O& o, const SettingValue& value) { o.alarm.number = value.number; }};

constexpr SettingAccess kPen{
    [](const O& o) {
      return SettingValue{ColourNumber(o.penColour[0] & 0xFF, o.penColour[1] & 0xFF, o.penColour[2] & 0xFF),
                          {}};
    },
    [](O& o, const SettingValue& value) {
      const Colour colour = ColourOfNumber(value.number);
      o.penColour = {colour.r, colour.g, colour.b};
    }};

template <auto Member>
constexpr auto kFixedBy = [](const Policy& policy) { return (policy.*Member).has_value(); };

// The places of new notes are numbers of any size: monitors lie left of and above the first one too.
constexpr std::int32_t kFar = 32000;

constexpr std::array kRows = {
#include "settings/setting_rows.inc"
};

constexpr std::array<TextView, 10> kState = {
    u"RecentColours",          u"Hidden",         u"SleepValues",  u"FontMRU",
    u"ManageWindow",           u"ManageWidths",   u"ManageSorted", u"ManageWindowVisible",
    u"ManageWindowSearchWhat", u"ManageWindowMax"};

}  // namespace

std::int32_t HotKeyNumber(const HotKey& key) {
  return (key.key & 0xFFFF) | (key.windowsKey ? 1 << 16 : 0) | (key.shift ? 1 << 17 : 0) |
         (key.ctrl ? 1 << 18 : 0) | (key.alt ? 1 << 19 : 0);
}

HotKey HotKeyOfNumber(std::int32_t number) {
  const auto has = [number](int bit) { return ((number >> bit) & 1) != 0; };
  return {has(16), has(17), has(18), has(19), number & 0xFFFF};
}

SettingsPage PageOf(SettingGroup group) {
  if (group <= kClosing) return SettingsPage::kNotes;
  if (group <= kWebSearch) return SettingsPage::kEditor;
  if (group <= kSeeThrough) return SettingsPage::kLooks;
  if (group <= kAttaching) return SettingsPage::kTime;
  if (group <= kSending) return SettingsPage::kNetwork;
  if (group <= kMailing) return SettingsPage::kMail;
  if (group <= kDrawing) return SettingsPage::kPictures;
  return SettingsPage::kSystem;
}

std::span<const SettingRow> SettingRows() { return kRows; }

const SettingRow* FindSetting(std::uint16_t id) {
  const auto found = std::ranges::find(kRows, id, &SettingRow::id);
  return found == kRows.end() ? nullptr : &*found;
}

std::span<const TextView> OptionsThatAreState() { return kState; }

}  // namespace jotlets

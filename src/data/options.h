// The user's settings: their values and defaults. `options_file.h` has their written form.
#pragma once

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/geometry.h"
#include "base/text.h"
#include "data/hot_key.h"
#include "data/jotlet_data.h"

namespace jotlets {

/// Two texts that one option holds, joined by a vertical bar when written.
struct TextPair {
  Text first;
  Text second;
  friend bool operator==(const TextPair&, const TextPair&) = default;
};

/// A text and a number, joined by a comma when written.
struct TextAndNumber {
  Text text;
  std::int32_t number = 0;
  friend bool operator==(const TextAndNumber&, const TextAndNumber&) = default;
};

/// A colour option as one number: red in the low byte, then green, then blue.
constexpr std::int32_t ColourNumber(int red, int green, int blue) {
  return red | (green << 8) | (blue << 16);
}

/// The colour of such a number; the highest byte does not count.
constexpr Colour ColourOfNumber(std::int32_t number) {
  const auto bits = static_cast<std::uint32_t>(number);
  return {static_cast<std::uint8_t>(bits & 0xFF), static_cast<std::uint8_t>((bits >> 8) & 0xFF),
          static_cast<std::uint8_t>((bits >> 16) & 0xFF)};
}

/// More unknown lines than any version of ours writes; a foreign file must not cost a search through all of
/// its lines for each.
inline constexpr std::size_t kMaxUnknownOptions = 1000;

/// Every setting, in the order of the file. Numbers that serve as switches are on when they are 1. What each
/// of them does is told in the table of `options_file.cpp`, from which the reference page is made.
struct Options {
  Text transferFile = u"a:\\transfer.ini";
  bool confirmClosure = false;
  std::int32_t debug = 0;
  Text signature;
  std::int32_t keepDeleted = 32;
  std::int32_t makeAllVisible = 1;
  std::int32_t useHooks = 1;
  // Windows + Alt with Shift and Ctrl as further modifiers: nothing on a stock Windows uses these.
  std::array<HotKey, 8> hooks = {{{true, false, false, true, 'S'},
                                  {true, true, false, true, 'S'},
                                  {true, false, true, true, 'S'},
                                  {true, true, true, true, 'S'},
                                  {true, false, false, true, 'M'},
                                  {true, false, false, true, 'W'},
                                  {true, false, false, true, 'F'},
                                  {true, false, false, true, 'A'}}};
  TextAndNumber alarm;
  std::int32_t soundAlarmOnWake = 0;
  std::int32_t aotDefault = 1;
  Text alarmAlarm;
  std::int32_t loopAlarm = 0;
  std::int32_t jiggleAlarm = 1;
  std::int32_t flashAlarm = 1;
  std::int32_t soundAlarm = 0;
  std::int32_t snoozeMinutes = 5;
  std::int32_t preventDuplicates = 1;
  std::int32_t preventOverlap = 1;
  std::int32_t newJotletsAppear = 0;
  std::array<std::int32_t, 2> newJotletsCoords = {0, 0};
  Text skin;
  bool singleClickCreates = false;
  bool opaqueEdit = false;
  std::int32_t titlebar = 0;
  std::int32_t hidden = 0;
  std::int32_t defaultWidth = 232;
  std::int32_t defaultHeight = 405;
  std::array<std::int32_t, 3> snap = {1, 10, 2};
  std::int32_t newJotletAction = 0;
  std::array<std::int32_t, 2> sleepValues = {1, 1};
  std::int32_t allowFixedSizing = 0;
  bool noRtlKeys = false;
  bool rtl = false;
  bool user1 = false;
  bool user2 = false;
  bool user3 = false;
  bool attachShowSystemWindows = false;
  bool allowTransparentBackgrounds = false;
  bool dontFadeToTransparent = false;
  bool defaultImage = false;
  bool lockingFreezes = false;
  std::int32_t animationSpeed = 30;
  std::int32_t syncPeriod = 60;
  bool alternateGetPixel = false;
  bool takeBackups = true;
  Text backupDir;
  std::int32_t backupPeriod = 24;
  std::int32_t keepBackups = 7;
  std::array<std::int32_t, 2> imageJotletDefaultSize = {320, 240};
  bool rolledHasAltPosition = false;
  bool shadows = false;
  std::int32_t appearance = 0;  // see `AppearanceChoice`
  std::int32_t bulletIndent = 300;
  TextPair google;
  Text fontMru;
  std::array<std::int32_t, 4> manageWindow = {100, 100, 1120, 620};
  std::array<std::int32_t, 4> manageWidths = {200, 46, 150, 150};
  std::int32_t manageSorted = 0;
  std::int32_t manageWindowVisible = 0;
  std::int32_t manageWindowSearchWhat = 15;
  bool manageWindowMax = false;
  bool networking = false;
  std::int32_t netPort = 52673;
  bool useDns = false;
  bool useSignature = false;
  Text sound;
  std::array<std::int32_t, 2> statistics = {0, 0};
  std::int32_t networkTimeout = 3;
  std::int32_t balloonOnSecret = 1;
  std::int32_t balloonPreview = 0;
  std::int32_t preventOverlapNetwork = 1;
  std::int32_t newJotletsAppearNetwork = 0;
  std::array<std::int32_t, 2> newJotletsCoordsNetwork = {0, 0};
  Text serverIp;
  std::int32_t useEmail = 0;
  Text smtpServer;
  bool mailSignature = false;
  std::int32_t askBeforeMailing = 1;
  Text emailAddress;
  bool openBeforeSend = false;
  bool attachSti = true;
  std::int32_t sortOrder = 0;
  std::array<std::int32_t, 2> inStyle = {0, 0};
  bool closeOnSend = false;
  bool allSecret = false;
  bool sendSecret = false;
  std::array<std::int32_t, 3> penColour = {0, 0, 0};
  std::int32_t penWidth = 3;
  std::int32_t sizeType = 1;
  std::int32_t keepAspect = 1;
  std::int32_t textSize = 20;
  std::int32_t imageUndo = 5;
  std::array<std::int32_t, 5> hilites = {ColourNumber(254, 255, 68), ColourNumber(254, 65, 255),
                                         ColourNumber(250, 200, 1), ColourNumber(63, 254, 60),
                                         ColourNumber(64, 253, 252)};
  bool greenRectSs = false;
  std::int32_t newJotletColour = kNone;
  std::int32_t eveningTime = 1080;
  std::int32_t morningTime = 540;
  bool undoStrip = true;
  bool altF4Leaves = false;
  std::array<std::int32_t, 5> recentColours = {-1, -1, -1, -1, -1};
  bool typingAids = true;
  bool formatBar = true;
  std::vector<Text> styles;

  /// Lines of the file that this version does not know, written back after the known ones.
  std::vector<std::pair<Text, Text>> others;

  RecordDefaults ForRecords() const { return {defaultWidth, user1, user2, user3}; }
  Point NewJotletsCorner() const { return {newJotletsCoords[0], newJotletsCoords[1]}; }
  Size ImageJotletSize() const { return {imageJotletDefaultSize[0], imageJotletDefaultSize[1]}; }
  friend bool operator==(const Options&, const Options&) = default;
};

}  // namespace jotlets

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
    SettingRow{.id = 1,
               .option = u"NewJotletsAppear",
               .group = kNewNotes,
               .control = kChoice,
               .access = kNumberOf<&O::newJotletsAppear>,
               .maximum = 2,
               .choices = 0},
    SettingRow{.id = 2,
               .option = u"NewJotletsCoords",
               .group = kNewNotes,
               .control = kNumber,
               .access = kPartOf<&O::newJotletsCoords, 0>,
               .minimum = -kFar,
               .maximum = kFar,
               .needs = 1,
               .needed = 2},
    SettingRow{.id = 3,
               .option = u"NewJotletsCoords",
               .group = kNewNotes,
               .control = kNumber,
               .access = kPartOf<&O::newJotletsCoords, 1>,
               .minimum = -kFar,
               .maximum = kFar,
               .continues = true,
               .hasUnit = true,
               .needs = 1,
               .needed = 2},
    SettingRow{.id = 4,
               .option = u"DefaultWidth",
               .group = kNewNotes,
               .control = kNumber,
               .access = kNumberOf<&O::defaultWidth>,
               .minimum = 1,
               .maximum = kFar},
    SettingRow{.id = 5,
               .option = u"DefaultHeight",
               .group = kNewNotes,
               .control = kNumber,
               .access = kNumberOf<&O::defaultHeight>,
               .minimum = 1,
               .maximum = kFar,
               .continues = true,
               .hasUnit = true},
    SettingRow{.id = 6,
               .option = u"NewJotletAction",
               .group = kNewNotes,
               .control = kChoice,
               .access = kNumberOf<&O::newJotletAction>,
               .maximum = 2,
               .choices = 10},
    SettingRow{.id = 7,
               .option = u"NewJotletColour",
               .group = kNewNotes,
               .control = kPaper,
               .access = kNumberOf<&O::newJotletColour>,
               .minimum = -1,
               .maximum = 0xFFFFFF},
    SettingRow{.id = 8, .option = u"DefaultImage", .group = kNewNotes, .access = kNumberOf<&O::defaultImage>},
    SettingRow{
        .id = 9, .option = u"PreventOverlap", .group = kNewNotes, .access = kNumberOf<&O::preventOverlap>},
    SettingRow{.id = 10,
               .option = u"SingleClickCreates",
               .group = kNewNotes,
               .access = kNumberOf<&O::singleClickCreates>},
    SettingRow{.id = 11, .option = u"User1", .group = kNewNotes, .access = kNumberOf<&O::user1>},
    SettingRow{
        .id = 12, .option = u"User2", .group = kNewNotes, .access = kNumberOf<&O::user2>, .continues = true},
    SettingRow{
        .id = 13, .option = u"User3", .group = kNewNotes, .access = kNumberOf<&O::user3>, .continues = true},

    SettingRow{.id = 14, .option = u"Snap", .group = kMoving, .access = kPartOf<&O::snap, 0>},
    SettingRow{.id = 15,
               .option = u"Snap",
               .group = kMoving,
               .control = kNumber,
               .access = kPartOf<&O::snap, 1>,
               .maximum = 200,
               .continues = true,
               .hasUnit = true,
               .needs = 14},
    SettingRow{.id = 16,
               .option = u"Snap",
               .group = kMoving,
               .control = kNumber,
               .access = kPartOf<&O::snap, 2>,
               .maximum = 200,
               .continues = true,
               .hasUnit = true,
               .needs = 14},
    SettingRow{
        .id = 17, .option = u"AllowFixedSizing", .group = kMoving, .access = kNumberOf<&O::allowFixedSizing>},
    SettingRow{
        .id = 18, .option = u"LockingFreezes", .group = kMoving, .access = kNumberOf<&O::lockingFreezes>},
    SettingRow{.id = 19,
               .option = u"RolledHasAltPosition",
               .group = kMoving,
               .access = kNumberOf<&O::rolledHasAltPosition>},
    SettingRow{.id = 20,
               .option = u"AnimationSpeed",
               .group = kMoving,
               .control = kNumber,
               .access = kNumberOf<&O::animationSpeed>,
               .maximum = 1000,
               .hasUnit = true},

    SettingRow{.id = 21,
               .option = u"KeepDeleted",
               .group = kClosing,
               .control = kNumber,
               .access = kNumberOf<&O::keepDeleted>,
               .maximum = 100000,
               .hasUnit = true},
    SettingRow{
        .id = 22, .option = u"Confirm closure", .group = kClosing, .access = kNumberOf<&O::confirmClosure>},
    SettingRow{
        .id = 23, .option = u"MakeAllVisible", .group = kClosing, .access = kNumberOf<&O::makeAllVisible>},
    SettingRow{.id = 24, .option = u"UndoStrip", .group = kClosing, .access = kNumberOf<&O::undoStrip>},
    SettingRow{.id = 25, .option = u"AltF4Leaves", .group = kClosing, .access = kNumberOf<&O::altF4Leaves>},
    SettingRow{.id = 30,
               .option = u"BulletIndent",
               .group = kTyping,
               .control = kNumber,
               .access = kNumberOf<&O::bulletIndent>,
               .maximum = 10000,
               .hasUnit = true},
    SettingRow{.id = 33, .option = u"TypingAids", .group = kTyping, .access = kNumberOf<&O::typingAids>},
    SettingRow{.id = 31, .option = u"RTL", .group = kTyping, .access = kNumberOf<&O::rtl>},
    SettingRow{.id = 32, .option = u"NoRTLKeys", .group = kTyping, .access = kNumberOf<&O::noRtlKeys>},

    SettingRow{.id = 34,
               .option = u"Hilite01",
               .group = kHighlights,
               .control = kColour,
               .access = kPartOf<&O::hilites, 0>},
    SettingRow{.id = 35,
               .option = u"Hilite02",
               .group = kHighlights,
               .control = kColour,
               .access = kPartOf<&O::hilites, 1>,
               .continues = true},
    SettingRow{.id = 36,
               .option = u"Hilite03",
               .group = kHighlights,
               .control = kColour,
               .access = kPartOf<&O::hilites, 2>,
               .continues = true},
    SettingRow{.id = 37,
               .option = u"Hilite04",
               .group = kHighlights,
               .control = kColour,
               .access = kPartOf<&O::hilites, 3>},
    SettingRow{.id = 38,
               .option = u"Hilite05",
               .group = kHighlights,
               .control = kColour,
               .access = kPartOf<&O::hilites, 4>,
               .continues = true},

    SettingRow{.id = 39, .group = kStyles, .control = kButton, .task = SettingTask::kEditStyles},

    SettingRow{.id = 40,
               .option = u"Google",
               .group = kWebSearch,
               .control = SettingControl::kText,
               .access = kSearchName},
    SettingRow{.id = 41,
               .option = u"Google",
               .group = kWebSearch,
               .control = kWebAddress,
               .access = kSearchAddress,
               .hasUnit = true},

    SettingRow{.id = 50,
               .option = u"Skin",
               .group = kFrame,
               .control = kSkin,
               .access = kTextOf<&O::skin>,
               .isFixed = kFixedBy<&Policy::skinFile>},
    SettingRow{.id = 51,
               .option = u"Titlebar",
               .group = kFrame,
               .control = kChoice,
               .access = kNumberOf<&O::titlebar>,
               .maximum = 2,
               .choices = 20},
    SettingRow{.id = 52, .option = u"Shadows", .group = kFrame, .access = kNumberOf<&O::shadows>},
    SettingRow{.id = 53,
               .option = u"AllowTransparentBackgrounds",
               .group = kFrame,
               .access = kNumberOf<&O::allowTransparentBackgrounds>},
    SettingRow{.id = 54,
               .option = u"AlternateGetPixel",
               .group = kFrame,
               .access = kNumberOf<&O::alternateGetPixel>},
    SettingRow{.id = 55, .option = u"OpaqueEdit", .group = kSeeThrough, .access = kNumberOf<&O::opaqueEdit>},
    SettingRow{.id = 56,
               .option = u"DontFadeToTransparent",
               .group = kSeeThrough,
               .access = kNumberOf<&O::dontFadeToTransparent>},

    SettingRow{.id = 57,
               .option = u"EveningTime",
               .group = kSleep,
               .control = kTimeOfDay,
               .access = kNumberOf<&O::eveningTime>,
               .maximum = 1439},
    SettingRow{.id = 58,
               .option = u"MorningTime",
               .group = kSleep,
               .control = kTimeOfDay,
               .access = kNumberOf<&O::morningTime>,
               .maximum = 1439},
    SettingRow{
        .id = 60, .option = u"SoundAlarmOnWake", .group = kSleep, .access = kNumberOf<&O::soundAlarmOnWake>},
    SettingRow{.id = 61, .option = u"AOTdefault", .group = kSleep, .access = kNumberOf<&O::aotDefault>},
    SettingRow{.id = 63, .option = u"Alarm", .group = kSleep, .access = kWakeSoundProposed},
    SettingRow{.id = 62, .option = u"Alarm", .group = kSleep, .control = kSound, .access = kWakeSoundFile},
    SettingRow{.id = 64,
               .option = u"PreventDuplicates",
               .group = kSleep,
               .access = kNumberOf<&O::preventDuplicates>},
    SettingRow{.id = 66,
               .option = u"SoundAlarm",
               .group = SettingGroup::kAlarm,
               .access = kNumberOf<&O::soundAlarm>},
    SettingRow{.id = 65,
               .option = u"AlarmAlarm",
               .group = SettingGroup::kAlarm,
               .control = kSound,
               .access = kTextOf<&O::alarmAlarm>},
    SettingRow{.id = 67,
               .option = u"LoopAlarm",
               .group = SettingGroup::kAlarm,
               .access = kNumberOf<&O::loopAlarm>,
               .needs = 66},
    SettingRow{.id = 68,
               .option = u"JiggleAlarm",
               .group = SettingGroup::kAlarm,
               .access = kNumberOf<&O::jiggleAlarm>},
    SettingRow{.id = 69,
               .option = u"FlashAlarm",
               .group = SettingGroup::kAlarm,
               .access = kNumberOf<&O::flashAlarm>},
    SettingRow{.id = 70,
               .option = u"SnoozeMinutes",
               .group = SettingGroup::kAlarm,
               .control = kNumber,
               .access = kNumberOf<&O::snoozeMinutes>,
               .minimum = 1,
               .maximum = 100000,
               .hasUnit = true},
    SettingRow{.id = 71,
               .option = u"AttachShowSystemWindows",
               .group = kAttaching,
               .access = kNumberOf<&O::attachShowSystemWindows>},

    SettingRow{.id = 80,
               .option = u"Networking",
               .group = kConnection,
               .access = kNumberOf<&O::networking>,
               .isFixed = kFixedBy<&Policy::useNetworking>},
    SettingRow{.id = 81,
               .option = u"NetPort",
               .group = kConnection,
               .control = kNumber,
               .access = kNumberOf<&O::netPort>,
               .minimum = 1,
               .maximum = 65535,
               .needs = 80,
               .isFixed = kFixedBy<&Policy::port>},
    SettingRow{.id = 82,
               .option = u"Network timeout",
               .group = kConnection,
               .control = kNumber,
               .access = kNumberOf<&O::networkTimeout>,
               .minimum = 1,
               .maximum = 3600,
               .hasUnit = true,
               .needs = 80},
    SettingRow{.id = 83,
               .option = u"ServerIP",
               .group = kConnection,
               .control = SettingControl::kText,
               .access = kTextOf<&O::serverIp>,
               .needs = 80,
               .isFixed = kFixedBy<&Policy::serverName>},
    SettingRow{.id = 84,
               .option = u"SyncPeriod",
               .group = kConnection,
               .control = kNumber,
               .access = kNumberOf<&O::syncPeriod>,
               .minimum = 1,
               .maximum = 100000,
               .hasUnit = true,
               .needs = 80},
    SettingRow{.id = 85,
               .option = u"Use DNS",
               .group = kConnection,
               .access = kNumberOf<&O::useDns>,
               .needs = 80,
               .isFixed = kFixedBy<&Policy::useDns>},
    SettingRow{.id = 86,
               .option = u"Transfer file",
               .group = kConnection,
               .control = SettingControl::kText,
               .access = kTextOf<&O::transferFile>},
    SettingRow{.id = 87,
               .option = u"NewJotletsAppearNetwork",
               .group = kArriving,
               .control = kChoice,
               .access = kNumberOf<&O::newJotletsAppearNetwork>,
               .maximum = 2,
               .choices = 0},
    SettingRow{.id = 88,
               .option = u"NewJotletsCoordsNetwork",
               .group = kArriving,
               .control = kNumber,
               .access = kPartOf<&O::newJotletsCoordsNetwork, 0>,
               .minimum = -kFar,
               .maximum = kFar,
               .needs = 87,
               .needed = 2},
    SettingRow{.id = 89,
               .option = u"NewJotletsCoordsNetwork",
               .group = kArriving,
               .control = kNumber,
               .access = kPartOf<&O::newJotletsCoordsNetwork, 1>,
               .minimum = -kFar,
               .maximum = kFar,
               .continues = true,
               .hasUnit = true,
               .needs = 87,
               .needed = 2},
    SettingRow{.id = 90,
               .option = u"PreventOverlapNetwork",
               .group = kArriving,
               .access = kNumberOf<&O::preventOverlapNetwork>},
    SettingRow{
        .id = 91, .option = u"Sound", .group = kArriving, .control = kSound, .access = kTextOf<&O::sound>},
    SettingRow{.id = 94, .option = u"All secret", .group = kArriving, .access = kNumberOf<&O::allSecret>},
    SettingRow{
        .id = 92, .option = u"BalloonOnSecret", .group = kArriving, .access = kNumberOf<&O::balloonOnSecret>},
    SettingRow{.id = 93,
               .option = u"BalloonPreview",
               .group = kArriving,
               .access = kNumberOf<&O::balloonPreview>,
               .needs = 92},
    SettingRow{.id = 95, .option = u"In style", .group = kArriving, .access = kPartOf<&O::inStyle, 0>},
    SettingRow{.id = 96,
               .option = u"In style",
               .group = kArriving,
               .control = kNumber,
               .access = kPartOf<&O::inStyle, 1>,
               .maximum = 9,
               .continues = true,
               .needs = 95},
    SettingRow{
        .id = 97, .option = u"Use signature", .group = kSending, .access = kNumberOf<&O::useSignature>},
    SettingRow{.id = 98,
               .option = u"Signature",
               .group = kSending,
               .control = SettingControl::kText,
               .access = kTextOf<&O::signature>},
    SettingRow{.id = 99, .option = u"Close on send", .group = kSending, .access = kNumberOf<&O::closeOnSend>},
    SettingRow{.id = 100, .option = u"SendSecret", .group = kSending, .access = kNumberOf<&O::sendSecret>},
    SettingRow{.id = 101,
               .option = u"Sort order",
               .group = kSending,
               .control = kChoice,
               .access = kNumberOf<&O::sortOrder>,
               .maximum = 1,
               .choices = 30},
    SettingRow{.id = 102,
               .option = u"Statistics",
               .group = kSending,
               .control = kInfo,
               .task = SettingTask::kTellStatistics},

    SettingRow{.id = 110,
               .option = u"Use email",
               .group = kMailing,
               .access = kNumberOf<&O::useEmail>,
               .isFixed = kFixedBy<&Policy::useEmail>},
    SettingRow{.id = 111,
               .option = u"SMTPServer",
               .group = kMailing,
               .control = SettingControl::kText,
               .access = kTextOf<&O::smtpServer>,
               .hasUnit = true,
               .needs = 110,
               .isFixed = kFixedBy<&Policy::smtpServerName>},
    SettingRow{.id = 112,
               .option = u"EmailAddress",
               .group = kMailing,
               .control = SettingControl::kText,
               .access = kTextOf<&O::emailAddress>,
               .needs = 110},
    SettingRow{.id = 113,
               .option = u"Mail signature",
               .group = kMailing,
               .access = kNumberOf<&O::mailSignature>,
               .needs = 110},
    SettingRow{.id = 114,
               .option = u"Ask before mailing",
               .group = kMailing,
               .access = kNumberOf<&O::askBeforeMailing>,
               .needs = 110},
    SettingRow{.id = 115,
               .option = u"Open before send",
               .group = kMailing,
               .access = kNumberOf<&O::openBeforeSend>,
               .needs = 110},
    SettingRow{.id = 116,
               .option = u"AttachSTI",
               .group = kMailing,
               .access = kNumberOf<&O::attachSti>,
               .needs = 110},

    SettingRow{.id = 120,
               .option = u"ImageJotletDefaultSize",
               .group = kPictureSize,
               .control = kNumber,
               .access = kPartOf<&O::imageJotletDefaultSize, 0>,
               .minimum = 1,
               .maximum = kFar},
    SettingRow{.id = 121,
               .option = u"ImageJotletDefaultSize",
               .group = kPictureSize,
               .control = kNumber,
               .access = kPartOf<&O::imageJotletDefaultSize, 1>,
               .minimum = 1,
               .maximum = kFar,
               .continues = true,
               .hasUnit = true},
    SettingRow{
        .id = 122, .option = u"Keep aspect", .group = kPictureSize, .access = kNumberOf<&O::keepAspect>},
    SettingRow{.id = 123,
               .option = u"Size type",
               .group = kPictureSize,
               .control = kChoice,
               .access = kNumberOf<&O::sizeType>,
               .maximum = 1,
               .choices = 40},
    SettingRow{.id = 124, .option = u"Pen colour", .group = kDrawing, .control = kColour, .access = kPen},
    SettingRow{.id = 125,
               .option = u"Pen width",
               .group = kDrawing,
               .control = kNumber,
               .access = kNumberOf<&O::penWidth>,
               .minimum = 1,
               .maximum = 100,
               .hasUnit = true},
    SettingRow{.id = 126,
               .option = u"Text size",
               .group = kDrawing,
               .control = kNumber,
               .access = kNumberOf<&O::textSize>,
               .minimum = 1,
               .maximum = 1000,
               .hasUnit = true},
    SettingRow{.id = 127,
               .option = u"ImageUndo",
               .group = kDrawing,
               .control = kNumber,
               .access = kNumberOf<&O::imageUndo>,
               .maximum = 1000,
               .hasUnit = true},
    SettingRow{.id = 128, .option = u"GreenRectSS", .group = kDrawing, .access = kNumberOf<&O::greenRectSs>},

    SettingRow{.id = 140, .option = u"UseHooks", .group = kHotKeys, .access = kNumberOf<&O::useHooks>},
    SettingRow{.id = 141,
               .option = u"Hook",
               .group = kHotKeys,
               .control = kHotKey,
               .access = kHotKeyOf<0>,
               .needs = 140},
    SettingRow{.id = 142,
               .option = u"Hook1",
               .group = kHotKeys,
               .control = kHotKey,
               .access = kHotKeyOf<1>,
               .needs = 140},
    SettingRow{.id = 143,
               .option = u"Hook2",
               .group = kHotKeys,
               .control = kHotKey,
               .access = kHotKeyOf<2>,
               .needs = 140},
    SettingRow{.id = 144,
               .option = u"Hook3",
               .group = kHotKeys,
               .control = kHotKey,
               .access = kHotKeyOf<3>,
               .needs = 140},
    SettingRow{.id = 145,
               .option = u"Hook4",
               .group = kHotKeys,
               .control = kHotKey,
               .access = kHotKeyOf<4>,
               .needs = 140},
    SettingRow{.id = 146,
               .option = u"Hook5",
               .group = kHotKeys,
               .control = kHotKey,
               .access = kHotKeyOf<5>,
               .needs = 140},
    SettingRow{.id = 150, .group = kFiles, .task = SettingTask::kStartWithWindows},
    SettingRow{.id = 151, .group = kFiles, .control = kInfo, .task = SettingTask::kTellDataFolder},
    SettingRow{
        .id = 152, .group = kFiles, .control = kButton, .continues = true, .task = SettingTask::kMoveData},
    SettingRow{.id = 153,
               .option = u"Debug",
               .group = kFiles,
               .control = kNumber,
               .access = kNumberOf<&O::debug>,
               .maximum = 9,
               .hasUnit = true},
    SettingRow{
        .id = 154, .group = kFiles, .control = kButton, .continues = true, .task = SettingTask::kOpenLog},
    SettingRow{.id = 155, .group = kFiles, .control = kInfo, .task = SettingTask::kTellLanguage},
    SettingRow{.id = 160, .option = u"TakeBackups", .group = kBackups, .access = kNumberOf<&O::takeBackups>},
    SettingRow{.id = 161,
               .option = u"BackupPeriod",
               .group = kBackups,
               .control = kNumber,
               .access = kNumberOf<&O::backupPeriod>,
               .minimum = 1,
               .maximum = 100000,
               .hasUnit = true,
               .needs = 160},
    SettingRow{.id = 162,
               .option = u"KeepBackups",
               .group = kBackups,
               .control = kNumber,
               .access = kNumberOf<&O::keepBackups>,
               .minimum = 1,
               .maximum = 100000,
               .hasUnit = true},
    SettingRow{.id = 163,
               .option = u"BackupDir",
               .group = kBackups,
               .control = kFolder,
               .access = kTextOf<&O::backupDir>},
    SettingRow{.id = 164, .group = kBackups, .control = kInfo, .task = SettingTask::kTellLastBackup},
    SettingRow{.id = 165, .group = kBackups, .control = kButton, .task = SettingTask::kBackUp},
    SettingRow{
        .id = 166, .group = kBackups, .control = kButton, .continues = true, .task = SettingTask::kRestore},
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

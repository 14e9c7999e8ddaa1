// The user's settings and their file form: "options.ini", one "key=value" line each, driven by one table.
#pragma once

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/geometry.h"
#include "base/text.h"
#include "data/jotlet_data.h"

namespace jotlets {

/// One global hot key: which modifiers, and the virtual-key code.
struct HotKey {
  bool windowsKey = false;
  bool shift = false;
  bool ctrl = false;
  bool alt = false;
  std::int32_t key = 0;
  friend bool operator==(const HotKey&, const HotKey&) = default;
};

/// The settings that this version acts on. Lines of the file that it does not know are kept in `others` and
/// written back after the known ones, so that no setting of another version is lost.
struct Options {
  std::int32_t debug = 0;         // highest activity-log level that is written
  std::int32_t keepDeleted = 32;  // how many closed notes are kept
  std::int32_t makeAllVisible = 1;
  std::int32_t useHooks = 1;
  // Windows + Alt with Shift and Ctrl as further modifiers: nothing on a stock Windows uses these.
  std::array<HotKey, 6> hooks = {{{true, false, false, true, 'S'},
                                  {true, true, false, true, 'S'},
                                  {true, false, true, true, 'S'},
                                  {true, true, true, true, 'S'},
                                  {true, false, false, true, 'M'},
                                  {true, false, false, true, 'W'}}};
  std::int32_t preventOverlap = 1;
  std::int32_t newJotletsAppear =
      0;  // 0 middle of the primary monitor, 1 of the virtual screen, 2 at the coords
  Point newJotletsCoords;
  bool singleClickCreates = false;
  bool opaqueEdit = false;
  std::int32_t hidden = 0;
  std::int32_t defaultWidth = 232;
  std::int32_t defaultHeight = 405;
  bool user1 = false;
  bool user2 = false;
  bool user3 = false;
  bool defaultImage = false;
  Size imageJotletDefaultSize{320, 240};
  bool rolledHasAltPosition = false;

  std::vector<std::pair<Text, Text>> others;

  RecordDefaults ForRecords() const { return {defaultWidth, user1, user2, user3}; }
  friend bool operator==(const Options&, const Options&) = default;
};

/// Takes one key and value; keys match exactly, values convert as far as they can.
void LoadOption(Options& options, TextView key, TextView value);

/// Reads the text of an options file: "[Options]" and empty lines are skipped, lines without "=" too.
void LoadOptions(Options& options, TextView text);

/// The text of the options file.
Text ComposeOptions(const Options& options);

}  // namespace jotlets

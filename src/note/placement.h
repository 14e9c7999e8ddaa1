// Where a new note appears, and how one that lies off the screen comes back.
#pragma once

#include <span>

#include "base/geometry.h"
#include "data/options.h"
#include "note/monitors.h"

namespace jotlets {

/// Where new notes appear without a position of their own.
enum class Appear {
  kPrimaryMonitor = 0,  // in the middle of it
  kVirtualScreen = 1,   // in the middle of it, its origin deliberately not added
  kAtCoords = 2,
};

struct PlacementSettings {
  std::int32_t appear = 0;  // an `Appear`; any other number leaves the position as requested
  Point coords;
  bool preventOverlap = true;
  Size newSize;  // of a note that is placed automatically
  Size primaryScreen;
  Size virtualScreen;
  MonitorList monitors;          // empty: notes may be cascaded as far as they will
  std::int32_t dpi = kUsualDpi;  // of the window, whose size is given for the usual scale
};

/// Notes that friends send are placed by options of their own.
enum class NoteOrigin { kUser, kFriend };

/// The settings for a new note, text or picture, from the options and the sizes of the screens.
PlacementSettings PlacementFrom(const Options& options, NoteOrigin origin, bool isImage, Size primaryScreen,
                                Size virtualScreen);

struct Placed {
  Point position;
  Size size;
};

/// A requested position is used unchanged unless its x or y is -65535, which asks for automatic placement.
/// That takes the size for new notes, but no more than all monitors have, and, with `preventOverlap`, moves
/// on by 16 pixels both ways as long as one of `corners`, the top-left corners of all notes, is exactly
/// there; partial overlaps are not avoided. Where that would lead out of the work area, it goes on from the
/// opposite edge.
Placed PlaceNewJotlet(Point requested, Size size, const PlacementSettings& settings,
                      std::span<const Point> corners);

/// The place of a note that must be on the screen: only its top-left corner is looked at. `screen` is the
/// virtual screen.
Point RescuedPosition(Point position, const Rect& screen);

}  // namespace jotlets

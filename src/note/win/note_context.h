// What the windows on the desktop, notes and stacks, need from outside besides their owner. All of it
// outlives them.
#pragma once

#include "data/options.h"
#include "note/monitors.h"
#include "skin/win/skin_renderer.h"

namespace jotlets {

struct NoteContext {
  const Options& options;
  const MonitorSetup& screens;  // those of this moment
  SkinRenderer& renderer;
};

}  // namespace jotlets

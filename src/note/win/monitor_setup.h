// The monitors of this moment.
#pragma once

#include "note/monitors.h"

namespace jotlets {

MonitorSetup ReadMonitors();

}  // namespace jotlets

// The event lines as the reference page lists them.
#pragma once

#include <span>

#include "base/text.h"

namespace jotlets {

struct EventRow {
  TextView line;  // what changes in it stands in italics
  TextView purpose;
};

std::span<const EventRow> EventRows();

}  // namespace jotlets

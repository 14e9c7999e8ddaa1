// The look of a fresh installation.
#pragma once

#include "data/options.h"

namespace jotlets {

/// Gives options the look that new installations have.
void SetFirstLook(Options& options);

}  // namespace jotlets

// Picture files of kinds that the system writes.
#pragma once

#include <string>

#include "picture/pixels.h"

namespace jotlets {

/// The bytes of a JPEG file of good quality, on white where the picture is transparent; empty when the system
/// cannot write one.
std::string JpegOf(const Picture& picture);

}  // namespace jotlets

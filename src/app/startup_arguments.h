// What a start of the program is asked to do.
#pragma once

#include "base/text.h"

namespace jotlets {

enum class StartKind {
  kNormal,
  kRescue,    // a normal start that brings notes found off the screen back
  kUsage,     // show the usage text and end
  kClose,     // ask the running instance to close and end
  kNoteFile,  // send a note file to the running instance and end
  kSkinFile,  // make a skin package (".jsk") the default skin of the running instance and end
};

struct StartRequest {
  StartKind kind = StartKind::kNormal;
  Text file;  // without quotes
};

/// Reads the command line behind the program's name. "-rescue" may stand anywhere in it.
StartRequest ParseCommandLine(TextView commandLine);

}  // namespace jotlets

// The application object: one instance, the command line, the message loop.
#pragma once

#include "app/startup_arguments.h"
#include "app/win/program_instance.h"
#include "ui/resources.h"

namespace jotlets {

class CSystemTrayApp {
 public:
  /// Serves the command line; the process's exit code.
  int InitInstance(TextView commandLine);

 private:
  int RunProgram(bool rescue);
  int SendNoteFile(TextView path);

  Theme theme_;
  Resources resources_{theme_};
  ProgramInstance instance_;
};

}  // namespace jotlets

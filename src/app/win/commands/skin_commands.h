// The skins that users and commands choose, for a note or as the default one, unless the administrator has
// fixed it.
#pragma once

#include "app/win/program_saving.h"
#include "app/win/system_tray.h"
#include "data/policy.h"
#include "desk/win/open_stacks.h"

namespace jotlets {

class SkinCommands {
 public:
  SkinCommands(const Resources& resources, Files& files, Log& log, OptionsKeeper& options,
               const Policy& policy, ProgramSkins& skins, OpenNotes& notes, OpenStacks& stacks,
               ProgramSaving& saving, CSystemTray& tray)
      : resources_(resources),
        files_(files),
        log_(log),
        options_(options),
        policy_(policy),
        skins_(skins),
        notes_(notes),
        stacks_(stacks),
        saving_(saving),
        tray_(tray) {}

  bool IsFixedByPolicy() const { return policy_.skinFile.has_value(); }
  /// Makes the skin in a file the default one; false when it is none, or policy fixes the skin.
  bool SetDefault(TextView path);
  /// The same for a file that the user has opened, who is told when it is no skin.
  bool OpenFile(TextView path);
  void UseDefault(const Text& name);
  Text DefaultPath() { return skins_.DefaultPath(); }
  /// Shows a note in the skin of a file, of a name, or for no text in the default one; false when there is no
  /// such skin, or policy fixes it.
  bool SetOfNote(BJotlet& jotlet, TextView nameOrPath);
  /// Lets the user choose one.
  void Choose(BJotlet& jotlet);

 private:
  const Resources& resources_;
  Files& files_;
  Log& log_;
  OptionsKeeper& options_;
  const Policy& policy_;
  ProgramSkins& skins_;
  OpenNotes& notes_;
  OpenStacks& stacks_;
  ProgramSaving& saving_;
  CSystemTray& tray_;
};

}  // namespace jotlets

// What is done with each of many notes that are managed.
#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <vector>

#include "app/win/program_window.h"
#include "base/text.h"
#include "ui/resources.h"

namespace jotlets {

class BManageDlg;

/// Does something with each of many notes, behind a dialog when that takes long.
class ManageJobs {
 public:
  ManageJobs(const Resources& resources, const ProgramWindow& window, const ProgramState& state,
             const BManageDlg& dialog)
      : resources_(resources), window_(window), state_(state), dialog_(dialog) {}

  /// While it lives, jobs cannot be stopped.
  class Whole {
   public:
    explicit Whole(ManageJobs& jobs) : jobs_(jobs) { jobs_.mayStop_ = false; }
    ~Whole() { jobs_.mayStop_ = true; }
    Whole(const Whole&) = delete;
    Whole& operator=(const Whole&) = delete;

   private:
    ManageJobs& jobs_;
  };

  /// `act` gets at most `together` of the names at a time and says how many it could not serve; how many
  /// these are. What has not been done when the user has had enough, or the program ends, is no failure.
  std::size_t ForEach(const std::vector<Text>& names, std::size_t together,
                      const std::function<std::size_t(const std::vector<Text>& names)>& act) const;
  /// The window that questions are asked in front of.
  HWND Asker() const;

 private:
  const Resources& resources_;
  const ProgramWindow& window_;
  const ProgramState& state_;
  const BManageDlg& dialog_;
  bool mayStop_ = true;
};

}  // namespace jotlets

#include "app/win/program_window.h"

#include "looks/motion.h"

namespace jotlets {
namespace {

UINT PeriodOf(ProgramTimer timer) {
  switch (timer) {
    case ProgramTimer::kSave:
    case ProgramTimer::kOptions: return 10000;
    case ProgramTimer::kFlash: return 500;
    case ProgramTimer::kMinute: return 60000;
    case ProgramTimer::kSecond: return 1000;
    case ProgramTimer::kAnimation: return kSlideStep;
    case ProgramTimer::kBackup: return 20;
    case ProgramTimer::kJournal: return 200;
    case ProgramTimer::kSearch: return 500;
  }
  return 0;
}

}  // namespace

void ProgramWindow::Start(ProgramTimer timer) const {
  SetTimer(window_, static_cast<UINT_PTR>(timer), PeriodOf(timer), nullptr);
}

}  // namespace jotlets

// Shows how far a job is that the user waits for.
#pragma once

#include "base/job.h"
#include "ui/dialog.h"

namespace jotlets {

/// Goes on with a job, or what steps like one, for about so long, one file at a time.
template <typename Work>
Job::State StepFor(Work& work, ULONGLONG milliseconds) {
  const ULONGLONG begun = GetTickCount64();
  Job::State state = Job::State::kRunning;
  while (state == Job::State::kRunning && GetTickCount64() - begun < milliseconds) state = work.Step(1);
  return state;
}

/// Does the whole job while windows stay alive: alone when it is soon over, else behind a dialog with its
/// progress. With `mayCancel` the user can stop it: then the state is still `kRunning`.
Job::State RunJob(HWND owner, const Resources& resources, UINT text, Job& job, bool mayCancel);

class BJobDlg final : public Dialog {
 public:
  BJobDlg(const Resources& resources, UINT text, Job& job, bool mayCancel)
      : resources_(resources), text_(text), job_(job), mayCancel_(mayCancel) {}

  Job::State Run(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  void OnTimer() override;

  const Resources& resources_;
  UINT text_;
  Job& job_;
  bool mayCancel_;
  Job::State state_ = Job::State::kRunning;
};

}  // namespace jotlets

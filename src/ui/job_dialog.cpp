#include "ui/job_dialog.h"

#include <commctrl.h>

#include "base/win/wide.h"
#include "res/resource.h"

namespace jotlets {
namespace {

// Nobody notices a wait this long; a dialog that came and went within it would only flicker.
constexpr ULONGLONG kUnnoticedMilliseconds = 250;
constexpr ULONGLONG kSliceMilliseconds = 30;
constexpr UINT_PTR kTimer = 1;
constexpr UINT kPeriod = 10;

}  // namespace

Job::State RunJob(HWND owner, const Resources& resources, UINT text, Job& job, bool mayCancel) {
  const Job::State state = StepFor(job, kUnnoticedMilliseconds);
  if (state != Job::State::kRunning) return state;
  return BJobDlg(resources, text, job, mayCancel).Run(owner);
}

Job::State BJobDlg::Run(HWND owner) {
  // Without a dialog the work is still to be done.
  if (Show(resources_, IDD_JOB, owner) == -1) state_ = job_.Finish();
  return state_;
}

void BJobDlg::OnInit() {
  SetDlgItemTextW(Handle(), IDC_JOB_TEXT, Wide(resources_.String(text_)));
  ShowWindow(Item(IDCANCEL), mayCancel_ ? SW_SHOW : SW_HIDE);
  SetTimer(Handle(), kTimer, kPeriod, nullptr);
}

bool BJobDlg::OnCommand(UINT control, UINT) {
  if (control == IDCANCEL && mayCancel_) End(IDCANCEL);
  return true;
}

void BJobDlg::OnTimer() {
  state_ = StepFor(job_, kSliceMilliseconds);
  SendMessageW(Item(IDC_JOB_PROGRESS), PBM_SETPOS, static_cast<WPARAM>(job_.Percent()), 0);
  if (state_ != Job::State::kRunning) End(IDOK);
}

}  // namespace jotlets

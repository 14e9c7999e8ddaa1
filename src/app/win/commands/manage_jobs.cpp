#include "app/win/commands/manage_jobs.h"

#include "base/each_job.h"
#include "manage/win/manage_dialog.h"
#include "res/resource.h"
#include "ui/job_dialog.h"

namespace jotlets {

HWND ManageJobs::Asker() const { return dialog_.IsOpen() ? dialog_.Window() : window_.Handle(); }

std::size_t ManageJobs::ForEach(const std::vector<Text>& names, std::size_t together,
                                const std::function<std::size_t(const std::vector<Text>&)>& act) const {
  EachJob job(names, together,
              [&](const std::vector<Text>& part) { return state_.exiting ? std::size_t{0} : act(part); });
  RunJob(Asker(), resources_, IDS_MANAGE_ACTS, job, mayStop_);
  return job.Failed();
}

}  // namespace jotlets

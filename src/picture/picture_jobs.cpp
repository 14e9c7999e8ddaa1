#include "picture/picture_jobs.h"

#include <algorithm>
#include <utility>

namespace jotlets {

void PictureJobs::Start(TextView note, Work work, Done done) {
  Cancel(note);
  if (!std::exchange(runs_, true)) worker_.Start();
  auto job = std::make_shared<Job>();
  job->note = note;
  job->work = std::move(work);
  job->done = std::move(done);
  begun_.push_back(job);
  worker_.Post([this, job] { Run(job); });
}

void PictureJobs::Run(const std::shared_ptr<Job>& job) {
  if (!job->cancelled) job->made = job->work([&job] { return job->cancelled.load(); });
  // What it holds may be large.
  job->work = {};
  {
    const std::lock_guard lock(mutex_);
    finished_.push_back(job);
  }
  wake_();
}

bool PictureJobs::Cancel(TextView note) {
  const auto job = std::ranges::find(begun_, note, [](const auto& begun) { return TextView(begun->note); });
  if (job == begun_.end()) return false;
  (*job)->cancelled = true;
  begun_.erase(job);
  return true;
}

void PictureJobs::Deliver() {
  std::deque<std::shared_ptr<Job>> finished;
  {
    const std::lock_guard lock(mutex_);
    finished.swap(finished_);
  }
  for (const std::shared_ptr<Job>& job : finished) {
    if (std::erase(begun_, job) != 0) job->done(std::move(job->made));
  }
}

void PictureJobs::Stop() {
  for (const std::shared_ptr<Job>& job : begun_) job->cancelled = true;
  begun_.clear();
  worker_.Stop();
  runs_ = false;
}

}  // namespace jotlets

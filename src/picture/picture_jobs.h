// Pictures that are made on another thread, because that takes long.
#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "base/text.h"
#include "base/worker.h"
#include "picture/effects.h"

namespace jotlets {

/// All calls are made on one thread.
class PictureJobs {
 public:
  /// Runs on the other thread; an empty picture says that it was given up.
  using Work = std::function<Picture(const Cancelled&)>;
  using Done = std::function<void(Picture)>;

  /// `wake` is called on the other thread when there is something to be delivered.
  explicit PictureJobs(std::function<void()> wake) : wake_(std::move(wake)) {}
  ~PictureJobs() { Stop(); }
  PictureJobs(const PictureJobs&) = delete;
  PictureJobs& operator=(const PictureJobs&) = delete;

  /// Begins something for a note; what was begun for it before is given up.
  void Start(TextView note, Work work, Done done);
  /// Gives it up: its `done` is not called any more; whether there was anything.
  bool Cancel(TextView note);
  /// Calls `done` of what has been finished.
  void Deliver();
  /// Gives up all, and waits for the thread to notice.
  void Stop();

 private:
  struct Job {
    Text note;
    Work work;
    Done done;
    std::atomic<bool> cancelled = false;
    Picture made;
  };

  void Run(const std::shared_ptr<Job>& job);

  std::function<void()> wake_;
  std::vector<std::shared_ptr<Job>> begun_;
  bool runs_ = false;
  std::mutex mutex_;
  std::deque<std::shared_ptr<Job>> finished_;
  Worker worker_;  // goes first
};

}  // namespace jotlets

#include "base/worker.h"

#include <utility>

namespace jotlets {

void Worker::Start(std::function<bool()> idle) {
  Stop();
  idle_ = std::move(idle);
  mayIdle_ = idle_ != nullptr;
  runs_ = true;
  thread_ = std::thread([this] { Run(); });
}

void Worker::Stop() {
  {
    const std::lock_guard lock(mutex_);
    runs_ = false;
    tasks_.clear();
  }
  wake_.notify_one();
  if (thread_.joinable()) thread_.join();
}

void Worker::Post(Task task) {
  {
    const std::lock_guard lock(mutex_);
    if (!runs_) return;
    tasks_.push_back(std::move(task));
  }
  wake_.notify_one();
}

// The work of its own when there is no other; nothing at the end.
Worker::Task Worker::Next() {
  std::unique_lock lock(mutex_);
  wake_.wait(lock, [this] { return !runs_ || !tasks_.empty() || mayIdle_; });
  if (!runs_) return {};
  if (tasks_.empty()) return [this] { mayIdle_ = idle_(); };
  Task task = std::move(tasks_.front());
  tasks_.pop_front();
  mayIdle_ = idle_ != nullptr;
  return task;
}

void Worker::Run() {
  while (const Task task = Next()) task();
}

}  // namespace jotlets

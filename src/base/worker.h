// A thread that does what it is given, one after the other, and some work of its own when there is nothing
// else.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace jotlets {

class Worker {
 public:
  using Task = std::function<void()>;

  Worker() = default;
  ~Worker() { Stop(); }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  /// Begins. `idle` does a little of the work that can wait; false: nothing of it is left until something has
  /// been posted. What throws ends the program: tasks do not.
  void Start(std::function<bool()> idle = {});
  /// Waits for what is being done; what has not been begun is dropped.
  void Stop();
  /// From any thread; dropped while the worker does not run.
  void Post(Task task);

 private:
  void Run();
  Task Next();

  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<Task> tasks_;
  std::function<bool()> idle_;
  bool runs_ = false;
  bool mayIdle_ = false;
  std::thread thread_;
};

}  // namespace jotlets

#include "picture/picture_jobs.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <string>

namespace jotlets {
namespace {

class PictureJobsTest : public testing::Test {
 protected:
  // A job that goes on until it may end, or is given up.
  PictureJobs::Work Waiting(std::int32_t width) {
    return [this, width](const Cancelled& cancelled) {
      while (!mayEnd_ && !cancelled()) std::this_thread::yield();
      return cancelled() ? Picture() : BlankPicture({width, 1});
    };
  }
  PictureJobs::Done Telling(const std::string& name) {
    return [this, name](const Picture& made) { told_ += name + std::to_string(made.size.width) + " "; };
  }
  // The last of those that were begun is done.
  void WaitForWakes(int count) {
    std::unique_lock lock(mutex_);
    woken_.wait(lock, [&] { return wakes_ >= count; });
  }

  std::mutex mutex_;
  std::condition_variable woken_;
  int wakes_ = 0;
  std::atomic<bool> mayEnd_ = false;
  std::string told_;
  PictureJobs jobs_{[this] {
    const std::lock_guard lock(mutex_);
    ++wakes_;
    woken_.notify_one();
  }};
};

TEST_F(PictureJobsTest, OnlyTheLastForANoteIsDelivered) {
  jobs_.Start(u"A", Waiting(1), Telling("A"));
  jobs_.Start(u"A", Waiting(2), Telling("A"));
  jobs_.Start(u"B", Waiting(3), Telling("B"));
  jobs_.Start(u"C", Waiting(4), Telling("C"));
  EXPECT_TRUE(jobs_.Cancel(u"C"));
  EXPECT_FALSE(jobs_.Cancel(u"C"));
  jobs_.Deliver();
  EXPECT_EQ(told_, "");
  mayEnd_ = true;
  WaitForWakes(4);
  jobs_.Deliver();
  EXPECT_EQ(told_, "A2 B3 ");
  EXPECT_FALSE(jobs_.Cancel(u"A")) << "it has been delivered";

  // One that has ended, and is given up before it is delivered.
  jobs_.Start(u"A", Waiting(5), Telling("A"));
  WaitForWakes(5);
  EXPECT_TRUE(jobs_.Cancel(u"A"));
  jobs_.Deliver();
  EXPECT_EQ(told_, "A2 B3 ");
}

TEST_F(PictureJobsTest, StoppingGivesUpWhatIsBeingDone) {
  jobs_.Start(u"A", Waiting(1), Telling("A"));
  jobs_.Start(u"B", Waiting(2), Telling("B"));
  jobs_.Stop();
  jobs_.Deliver();
  EXPECT_EQ(told_, "");
  jobs_.Start(
      u"A",
      [](const Cancelled&) {
        return BlankPicture({7, 1});
      },
      Telling("A"));
  while (told_.empty()) jobs_.Deliver();
  EXPECT_EQ(told_, "A7 ");
}

}  // namespace
}  // namespace jotlets

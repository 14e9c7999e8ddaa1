#include "desk/load_trials.h"

#include <gtest/gtest.h>

#include "data/loading.h"
#include "fake_desk.h"

namespace jotlets {
namespace {

TEST(LoadTrials, WhatCameToNoEndIsNotTriedAgainUntilItIsChanged) {
  FakeFiles disk;
  FakeJournalFile file(disk);
  {
    LoadTrials run(file);
    run.Open();
    run.Begin("harmless");
    run.End();
    run.Begin(kPlaceholderRtf);
    run.Begin("ends it");
  }
  LoadTrials next(file);
  next.Open();
  EXPECT_TRUE(next.HasFailed("ends it"));
  EXPECT_FALSE(next.HasFailed(kPlaceholderRtf)) << "what every new note begins with";
  EXPECT_FALSE(next.HasFailed("harmless") || next.HasFailed("ends it, changed"));
  next.Begin("ends it too");
  // The last line is cut, as by a power failure.
  file.bytes.pop_back();
  LoadTrials third(file);
  third.Open();
  EXPECT_TRUE(third.HasFailed("ends it"));
  EXPECT_FALSE(third.HasFailed("ends it too"));
  EXPECT_EQ(file.bytes.size() % 17, 0u) << "what follows can be read";
  file.bytes = "no line at all ..\n";
  LoadTrials strange(file);
  strange.Open();
  EXPECT_TRUE(strange.IsEmpty() && file.bytes.empty());
}

}  // namespace
}  // namespace jotlets

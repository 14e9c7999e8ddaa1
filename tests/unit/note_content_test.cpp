#include "note/note_content.h"

#include <gtest/gtest.h>

#include "data/content_files.h"
#include "fake_desk.h"

namespace jotlets {
namespace {

const Text kPath = u"D:\\rtf\\A.rtf";
const LocalTime kNow{2026, 11, 21, 9, 5, 7};

struct NoteContentSaving : testing::Test {
  FakeWindows::Content content;
  FakeFiles files;
  bool keepOld = false;

  NoteContentSaving() {
    files.Put(kPath, "old");
    content.bytes = "new", content.unsaved = true;
  }
  ContentSaved Save() { return SaveContentFile(content, keepOld, files, kPath, kNow); }
};

TEST_F(NoteContentSaving, WritesWhatHasChangedOnce) {
  const ContentSaved saved = Save();
  EXPECT_TRUE(saved.status.ok);
  EXPECT_TRUE(saved.written);
  EXPECT_EQ("new", files.Get(kPath));
  EXPECT_FALSE(content.unsaved);
  content.bytes = "never asked for";
  EXPECT_FALSE(Save().written);
  EXPECT_EQ("new", files.Get(kPath));
  EXPECT_EQ(1u, files.Paths().size()) << "nothing was kept beside it";
}

TEST_F(NoteContentSaving, OfAPictureTakesWhatIsDrawnOnItAlong) {
  const Text picture = u"D:\\images\\P.png";
  const Text copy = u"D:\\images\\Q.png";
  Text fault;
  ASSERT_TRUE(WriteContent(files, picture, {{}, "png", "objects"}, fault));
  ASSERT_TRUE(CopyContentFile(files, picture, copy));
  EXPECT_EQ(files.Get(u"D:\\images\\Q.jdr"), "objects");
  files.changesUntilFailure = 1;
  EXPECT_FALSE(WriteContent(files, picture, {{}, "hidden", "objects"}, fault));
  EXPECT_FALSE(files.Exists(u"D:\\images\\P.jdr")) << "it may have what is hidden now";
  ASSERT_TRUE(WriteContent(files, picture, {{}, "png", "objects"}, fault));
  files.changesUntilFailure = 2;
  EXPECT_TRUE(WriteContent(files, picture, {{}, "png", "more"}, fault)) << "the picture is whole";
  EXPECT_EQ(fault, u"disk full");
  ASSERT_TRUE(WriteContent(files, picture, {{}, "png", "objects"}, fault));
  ASSERT_TRUE(WriteContent(files, picture, {{}, "blank", {}}, fault));
  EXPECT_FALSE(files.Exists(u"D:\\images\\P.jdr")) << "nothing is drawn any more";
  files.Remove(copy);
  EXPECT_EQ(ContentFiles(files, u"D:\\").StrayObjects().size(), 1u);
  ASSERT_TRUE(RemoveContentFile(files, copy));
  EXPECT_TRUE(ContentFiles(files, u"D:\\").StrayObjects().empty());
}

TEST_F(NoteContentSaving, TheBeginningOfATextNeverTakesThePlaceOfAllOfIt) {
  content.whole = false;
  keepOld = true;
  const ContentSaved saved = Save();
  EXPECT_TRUE(saved.status.ok);
  EXPECT_FALSE(saved.written);
  EXPECT_EQ("old", files.Get(kPath));
  EXPECT_TRUE(content.unsaved);
  EXPECT_TRUE(keepOld);
}

TEST_F(NoteContentSaving, KeepsAFileThatWasNotReadWholeOnce) {
  keepOld = true;
  EXPECT_TRUE(Save().written);
  EXPECT_EQ("new", files.Get(kPath));
  EXPECT_TRUE(files.Keeps("old"));
  content.unsaved = true;
  EXPECT_TRUE(Save().written);
  EXPECT_EQ(2u, files.Paths().size());
}

TEST_F(NoteContentSaving, AFailureAtAnyStepLosesNothingAndIsMadeGoodByTheNextAttempt) {
  for (int step = 0; step < 2; ++step) {
    files.Put(kPath, "old");
    content.unsaved = true;
    keepOld = true;
    files.changesUntilFailure = step;
    const ContentSaved failed = Save();
    EXPECT_FALSE(failed.status.ok) << step;
    EXPECT_FALSE(failed.written) << step;
    EXPECT_TRUE(content.unsaved) << step;
    EXPECT_EQ("old", files.Get(kPath)) << step;
    EXPECT_EQ(step == 0, keepOld) << step;
    EXPECT_TRUE(Save().written) << step;
    EXPECT_EQ("new", files.Get(kPath)) << step;
    EXPECT_TRUE(files.Keeps("old")) << step;
  }
}

TEST_F(NoteContentSaving, WhatIsTypedWhileTheFileIsWrittenIsUnsaved) {
  files.onWrite = [this] {
    content.bytes = "typed";
    content.unsaved = true;
  };
  EXPECT_TRUE(Save().written);
  EXPECT_EQ("new", files.Get(kPath));
  EXPECT_TRUE(content.unsaved);
}

}  // namespace
}  // namespace jotlets

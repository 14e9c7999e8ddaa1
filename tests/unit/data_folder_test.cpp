#include "data/data_folder.h"

#include <gtest/gtest.h>

#include "fakes.h"

namespace jotlets {
namespace {

const DataFolderFacts kFacts{u"D:\\notes", u"C:\\Users\\ann", u"C:\\Program", u"C:\\Users\\ann\\AppData"};

Text Found(const DataFolderFacts& facts, std::initializer_list<TextView> paths) {
  FakeFiles files;
  for (const TextView path : paths) files.Put(path, "");
  return FindDataFolder(facts, files);
}

TEST(DataFolder, IsTheFirstOneThatHoldsData) {
  EXPECT_EQ(Found(kFacts, {u"D:\\notes\\jotlets.ini", u"C:\\Program\\jotlets.ini"}), u"D:\\notes\\");
  EXPECT_EQ(Found(kFacts, {u"D:\\notes\\store.mdb"}), u"D:\\notes\\");
  EXPECT_EQ(Found(kFacts, {u"D:\\notes\\options.ini", u"C:\\Program\\store.mdb"}), u"C:\\Program\\");
  EXPECT_EQ(Found(kFacts, {}), u"C:\\Users\\ann\\AppData\\jotlets\\");
  // Without a registry value the root of the current drive is not meant.
  EXPECT_EQ(Found({u"", u"", u"", u"C:\\A\\"}, {u"jotlets.ini", u"\\jotlets.ini"}), u"C:\\A\\jotlets\\");
}

TEST(DataFolder, InTheRegistryMayNameTheProfile) {
  const auto found = [](TextView path, TextView profile) {
    return Found({Text(path), Text(profile), u"", u"X:"},
                 {u"C:\\ann\\n\\jotlets.ini", u"C:\\ann\\jotlets.ini"});
  };
  EXPECT_EQ(found(u"%PROFILE%\\n", u"C:\\ann"), u"C:\\ann\\n\\");
  EXPECT_EQ(found(u"%PROFILE%/n\\", u"C:\\ann\\"), u"C:\\ann\\n\\");
  EXPECT_EQ(found(u"%PROFILE%", u"C:\\ann"), u"C:\\ann\\");
}

FakeFiles FilledFolder() {
  FakeFiles files;
  for (const TextView name :
       {u"jotlets.ini", u"options.ini", u"friends.ini", u"store.mdb", u"categories.png", u"default.rtf",
        u"default.png", u"borders.png", u"rtf\\1.rtf", u"rtf\\2.rtf", u"skins\\paper.jsk", u"images\\3.png",
        u"images\\3.jdr", u"activity.log", u"jotlets.bye", u"rtf\\x.tmp", u"images\\4.rtf"}) {
    files.Put(Text(u"A:\\").append(name), "bytes of " + ToUtf8(name));
  }
  return files;
}

TEST(CopyingTheDataSet, TakesAllOfItAndNothingElse) {
  FakeFiles files = FilledFolder();
  files.Remove(u"A:\\borders.png");  // what is not there is passed over
  EXPECT_TRUE(CopyDataSet(files, u"A:\\", u"B:\\"));
  Text names;
  for (const Text& path : files.Paths()) names.append(path[0] == u'B' ? path.substr(3) + u" " : u"");
  EXPECT_EQ(names,
            u"categories.png default.png default.rtf friends.ini images\\3.jdr images\\3.png jotlets.ini "
            u"options.ini "
            u"rtf\\1.rtf rtf\\2.rtf skins\\paper.jsk store.mdb ");
  EXPECT_EQ(files.Get(u"B:\\rtf\\1.rtf"), "bytes of rtf\\1.rtf");
}

TEST(CopyingTheDataSet, FailsWhenAnySingleStepFails) {
  for (int step = 0; step < 18; ++step) {  // five folders, thirteen files
    FakeFiles files = FilledFolder();
    files.changesUntilFailure = step;
    EXPECT_EQ(CopyDataSet(files, u"A:\\", u"B:\\").reason, u"disk full") << step;
  }
}

}  // namespace
}  // namespace jotlets

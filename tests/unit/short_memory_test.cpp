// Memory that is short at any moment: reading and saving fail, and nothing on the disk is lost by that.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "data/journal_replay.h"
#include "fake_desk.h"

namespace {

long untilFailure = -1;  // counts allocations down to the one that fails; below 0 none does

void* Allocate(std::size_t size) {
  if (untilFailure == 0) throw std::bad_alloc();
  if (untilFailure > 0) --untilFailure;
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace jotlets {
namespace {

// Does it with the n-th allocation failing; whether it came to that.
template <typename Action>
bool FailsAt(long allocation, Action action) {
  untilFailure = allocation;
  bool failed = false;
  try {
    action();
  } catch (const std::bad_alloc&) {
    failed = true;
  }
  failed = failed || untilFailure == 0;
  untilFailure = -1;
  return failed;
}

Text IdsAndTexts(FakeDesk& home, std::string_view journal) {
  const Latin1 ansi;
  Options options;
  FakeLog log;
  const LoadedData loaded =
      LoadJotlets({home.files, ansi, options, CountingIds(), home.clock.now, log}, kFolder, journal);
  Text found = loaded.damaged || loaded.journal.keep ? u"damaged " : u"";
  for (const FiledJotlet& note : loaded.file.jotlets) {
    found += note.record.id + u"=" + note.record.title + u" " +
             FromAscii(home.files.Get(Text(kFolder) + ContentPath(note.record))) + u";";
  }
  return found;
}

struct Home : FakeDesk {
  Home() {
    Load(u"[Jotlets]\n<ID>A<X>5<Y>5<RTF>\n<ID>B<X>5<Y>5<RTF>\n");
    desk.Saver().SetDirty();
    desk.Saver().SaveIfDirty();
    windows.Type(u"A", u"{\\rtf1 typed}");
    desk.Changed(u"A");
    Lists().desktop.Find(u"B")->title = u"new";
    desk.Changed(u"B");
  }
};

TEST(ShortMemory, ASaveThatFailsLosesNothingAndTheNextOneSucceeds) {
  const Text before = u"A= {\\rtf1 A};B= {\\rtf1 B};";
  const Text after = u"A= {\\rtf1 typed};B=new {\\rtf1 B};";
  for (const bool journalOnly : {true, false}) {
    for (long allocation = 0;; ++allocation) {
      Home home;
      ASSERT_EQ(IdsAndTexts(home, {}), before);
      const bool failed = FailsAt(allocation, [&] {
        if (journalOnly) {
          home.desk.Journal().WriteChanges([] { return true; });
        } else {
          home.desk.Saver().SaveIfDirty();
        }
      });
      const Text found = IdsAndTexts(home, home.journal.bytes);
      EXPECT_TRUE(found.starts_with(u"A= {\\rtf1 A}") || found.starts_with(u"A= {\\rtf1 typed}"))
          << ToUtf8(found);
      home.desk.Journal().WriteChanges([] { return true; });
      ASSERT_TRUE(!journalOnly || IdsAndTexts(home, home.journal.bytes) == after) << allocation;
      home.desk.Saver().SetDirty();
      ASSERT_TRUE(home.desk.Saver().SaveIfDirty());
      ASSERT_EQ(IdsAndTexts(home, home.journal.bytes), after) << allocation;
      if (!failed) break;
    }
  }
}

TEST(ShortMemory, AStartThatFailsLeavesTheFolderForTheNextOne) {
  for (long allocation = 0;; ++allocation) {
    Home home;
    home.desk.Journal().WriteChanges([] { return true; });
    const bool failed = FailsAt(allocation, [&] { IdsAndTexts(home, home.journal.bytes); });
    ASSERT_EQ(IdsAndTexts(home, home.journal.bytes), u"A= {\\rtf1 typed};B=new {\\rtf1 B};") << allocation;
    if (!failed) break;
  }
}

}  // namespace
}  // namespace jotlets

#include "data/loading.h"

#include <gtest/gtest.h>

#include "data/data_folder.h"
#include "data/saving.h"
#include "data/text_file.h"
#include "fakes.h"

namespace jotlets {
namespace {

constexpr TextView kFolder = u"C:\\data\\";
constexpr TextView kFile = u"C:\\data\\jotlets.ini";
constexpr TextView kExitCopy = u"C:\\data\\jotlets.bye";
constexpr TextView kSafetyCopy = u"C:\\data\\jotlets.bak";

class Loading : public testing::Test {
 protected:
  void Put(TextView path, TextView text) { files.Put(path, EncodeTextFile(text)); }
  void PutContent(std::initializer_list<TextView> names) {
    for (const TextView name : names) files.Put(Text(kFolder).append(name), "content of " + ToUtf8(name));
  }
  std::string Content(TextView id) const {
    return files.Get(Text(kFolder).append(u"rtf\\").append(id).append(u".rtf"));
  }
  LoadedData Load() {
    return LoadJotlets({files, ansi, options, CountingIds(), clock.now, log}, kFolder, {});
  }
  static Text Ids(const std::vector<FiledJotlet>& jotlets) {
    Text ids;
    for (const FiledJotlet& jotlet : jotlets) ids.append(jotlet.record.id).append(u" ");
    return ids;
  }

  FakeFiles files;
  Latin1 ansi;
  Options options;
  FakeClock clock;
  FakeLog log;
};

TEST_F(Loading, AMissingFileIsAFirstStart) {
  Put(kExitCopy, u"[Jotlets]\n<ID>OLD<RTF>\n");
  const LoadedData loaded = Load();
  EXPECT_TRUE(loaded.file.jotlets.empty() && !loaded.damaged && !loaded.MustNotBeReplaced() &&
              log.lines.empty());
}

TEST_F(Loading, AGoodFileIsLoadedAndNothingIsTouched) {
  JotletData note;
  note.Reset({}, 5, u"A");
  note.title = u"\u00fc<\n";
  RecordLines lines;
  Text text = MarkedDataFile({u"ME", {}, {&note}, {}, {}, false}, lines);
  files.Put(kFile, std::string(MarkedBytes(text)));
  files.changesUntilFailure = 0;
  const LoadedData loaded = Load();
  ASSERT_EQ(loaded.file.jotlets.size(), 1u);
  EXPECT_TRUE(loaded.file.jotlets[0].record == note && !loaded.damaged);
  EXPECT_EQ(files.changesUntilFailure, 0);
}

TEST_F(Loading, ADamagedFileIsKeptAndACopyLoadedInstead) {
  Put(kExitCopy, u"[Jotlets]\n<ID>COPY<RTF>\n");
  std::set<Text> keptNames;
  for (const std::string& bytes :
       {std::string(), std::string(4096, '\0'), std::string("\xFF\xFE"), std::string("\xFF"),
        std::string("MZ\x90\x01"), "\xFF\xFE" + std::string(99, '\0'),
        EncodeTextFile(u"[Options]\niniver=3\n") + std::string(4096, '\0')}) {
    files.Put(kFile, bytes);
    const LoadedData loaded = Load();
    EXPECT_TRUE(loaded.damaged && !loaded.MustNotBeReplaced()) << bytes.size();
    EXPECT_EQ(files.Get(loaded.keptAs), bytes);
    EXPECT_TRUE(log.Holds(loaded.keptAs) && keptNames.insert(loaded.keptAs).second);
    EXPECT_EQ(loaded.loadedInstead, u"jotlets.bye") << bytes.size();
    EXPECT_EQ(Ids(loaded.file.jotlets), u"COPY ") << bytes.size();
  }
  EXPECT_TRUE(keptNames.contains(u"C:\\data\\jotlets.ini.damaged-202611210905"));
  for (const Text& name : keptNames) EXPECT_TRUE(files.Exists(name));
}

TEST_F(Loading, WhatCanBeReadOfADamagedFileIsLoaded) {
  const std::string whole = EncodeTextFile(u"[Jotlets]\n<ID>A<RTF>\n<ID>B<X>5<Y>6<RTF>\n");
  Put(kExitCopy, u"[Jotlets]\n<ID>COPY<RTF>\n");
  for (const std::string& bytes :
       {whole.substr(0, whole.size() - 10), whole + std::string(512, '\0'), whole + "x",
        std::string("\xEF\xBB\xBF[Jotlets]\n<ID>A<RTF>\n<ID>B<X>5<RTF>\xC3")}) {
    files.Put(kFile, bytes);
    const LoadedData loaded = Load();
    EXPECT_TRUE(loaded.damaged && files.Keeps(bytes) && loaded.loadedInstead == kExitCopyName);
    EXPECT_EQ(files.Get(u"C:\\data\\jotlets.bye.kept-202611210905"), files.Get(kExitCopy));
    EXPECT_EQ(Ids(loaded.file.jotlets), u"A B COPY ");
    EXPECT_EQ(loaded.file.jotlets[1].record.x, 5);
  }
}

// With the copy of the last exit there, wherever the file ends: a byte more or less decides which of our
// signs of damage is left.
TEST_F(Loading, ACutFileLosesNothingWhereverItWasCut) {
  std::vector<JotletData> notes(5);
  DataFileView view{u"ME", {}, {}, {}, {}, false};
  for (std::size_t i = 0; i < notes.size(); ++i) {
    notes[i].Reset({}, 5, u"N" + IntText(static_cast<int>(i)));
    notes[i].title = u"title of " + notes[i].id;
    notes[i].deletedTime = i < 3 ? kNotSet : 1'400'000'000;
    (i < 3 ? view.jotlets : view.deleted).push_back(&notes[i]);
  }
  const std::string whole = EncodeTextFile(ComposeDataFile(view));
  for (std::size_t length = 0; length < whole.size(); ++length) {
    files = FakeFiles();
    files.Put(kExitCopy, whole);
    Put(kSafetyCopy, u"[Jotlets]\n<ID>N0<CREATED>1<RTF>\n");
    files.Put(kFile, whole.substr(0, length));
    const LoadedData loaded = Load();
    ASSERT_EQ(Ids(loaded.file.jotlets), u"N0 N1 N2 ") << length;
    ASSERT_EQ(Ids(loaded.file.deleted), u"N3 N4 ") << length;
    for (std::size_t i = 0; i < notes.size(); ++i) {
      const auto& list = i < 3 ? loaded.file.jotlets : loaded.file.deleted;
      ASSERT_TRUE(list[i < 3 ? i : i - 3].record == notes[i]) << length;
    }
  }
}

// Any letter of any header, with and without the copy of the last exit.
TEST_F(Loading, AWrongLetterInAHeaderLosesNothing) {
  JotletData open, closed;
  open.Reset({}, 5, u"A");
  closed.Reset({}, 5, u"D");
  closed.deletedTime = 1'400'000'000;
  const std::vector<StackRecord> stacks = {ParseStackLine(u"<ID>4<TITLE>Work", 1)};
  const Text whole = ComposeDataFile({u"ME", stacks, {&open}, {}, {&closed}, false});
  for (const Text header : {u"[Stacks]", u"[Jotlets]", u"[Deleted jotlets]"}) {
    for (std::size_t letter = 0; letter < header.size(); ++letter) {
      Text bent = whole;
      bent[whole.find(header) + letter] = u'~';
      files = FakeFiles();
      Put(kFile, bent);
      EXPECT_TRUE(Load().damaged && files.Keeps(EncodeTextFile(bent))) << ToUtf8(bent);
      Put(kExitCopy, whole);
      const LoadedData loaded = Load();
      EXPECT_EQ(Ids(loaded.file.jotlets) + Ids(loaded.file.deleted), u"A D ") << ToUtf8(bent);
      EXPECT_TRUE(loaded.file.stacks == stacks) << ToUtf8(bent);
    }
  }
}

TEST_F(Loading, AFileThatCannotBePutAsideMustNotBeReplaced) {
  files.Put(kFile, "damage");
  files.changesUntilFailure = 0;
  EXPECT_TRUE(Load().MustNotBeReplaced() && log.Holds(u"disk full"));
  files.Put(kFile, "locked");
  files.unreadable.insert(FoldCase(kFile));
  EXPECT_TRUE(Load().MustNotBeReplaced() && log.Holds(u"locked"));
  EXPECT_EQ(files.Get(kFile), "locked");
}

TEST_F(Loading, TheCopyWithTheLatestChangeIsTaken) {
  const auto takenWith = [this](TextView exitCopy, TextView safetyCopy) {
    files.Put(kFile, "damage");
    Put(kExitCopy, exitCopy);
    Put(kSafetyCopy, safetyCopy);
    return Load().loadedInstead;
  };
  const TextView early = u"[Jotlets]\n<CREATED>5<MODIFIED>20<RTF>\n",
                 later = u"[Jotlets]\n<CREATED>5<MODIFIED>30<RTF>\n";
  EXPECT_EQ(takenWith(early, later), u"jotlets.bak");
  EXPECT_EQ(takenWith(later, early), u"jotlets.bye");
  EXPECT_EQ(takenWith(early, u"[Jotlets]\n<CREATED>29<RTF>\n"), u"jotlets.bak");
  EXPECT_EQ(takenWith(later, u"[Deleted jotlets]\n1400000000|<CREATED>5<RTF>\n"), u"jotlets.bak");
  // A whole copy goes before a cut one, one that can be read before one that cannot.
  EXPECT_EQ(takenWith(u"[Jotlets]\n<CREATED>40<X>5<Y", early), u"jotlets.bak");
  EXPECT_EQ(takenWith(u"[Jotlets]\n<CREATED>40<X>5<Y", u"garbage"), u"jotlets.bye");
  EXPECT_EQ(takenWith(u"[Options]\niniver=4\n[Jotlets]\n<CREATED>90<RTF>\n", early), u"jotlets.bak");
  EXPECT_EQ(takenWith(u"[Options]\niniver=4\n[Jotlets]\n<ID>A<RTF>\n", u""), u"");
}

TEST_F(Loading, ANewerFileIsNotTouched) {
  const Text text = u"[Options]\nDebug=3\niniver=4\nDebug=2\n[Jotlets]\n<ID>A<RTF>{\\rtf1 x}\n<ID>B<X>";
  files.Put(kFile, EncodeTextFile(text) + std::string(512, '\0'));
  files.changesUntilFailure = 0;
  const LoadedData loaded = Load();
  EXPECT_TRUE(loaded.file.version == 4 && loaded.file.jotlets.empty() && options == Options());
  EXPECT_EQ(files.changesUntilFailure, 0);
  EXPECT_EQ(log.lines,
            std::vector<Text>{u"Data file at C:\\data\\jotlets.ini is version 4 but I only open version 3"});
}

TEST_F(Loading, ContentInLinesGoesToContentFiles) {
  Put(kFile,
      u"[Jotlets]\n<ID>X<RTF>{\\rtf1 x}\n<ID>A<RTF>{\\rtf1 a^Mb}\n<X>5<RTF>{\\rtf1 \u00fc}\n[Deleted "
      u"jotlets]\n"
      u"<ID>D<RTF>{\\rtf1 d}\n");
  files.unchangeable.insert(u"c:\\data\\rtf\\x.rtf");
  EXPECT_EQ(Ids(Load().file.jotlets), u"X A FRESH1 ");
  EXPECT_TRUE(log.Holds(u"disk full"));
  EXPECT_EQ(Content(u"A"), "{\\rtf1 a\r\nb}");
  EXPECT_EQ(Content(u"FRESH1"), "{\\rtf1 \\u252?}");
  EXPECT_EQ(Content(u"D"), "{\\rtf1 d}");
}

TEST_F(Loading, InlineContentThatCannotBeWrittenStaysInTheKeptFile) {
  Put(kFile, u"[Jotlets]\n<ID>A<RTF>{\\rtf1 a}\n");
  const std::string bytes = files.Get(kFile);
  files.unchangeable.insert(FoldCase(u"C:\\data\\rtf\\A.rtf"));
  const LoadedData loaded = Load();
  EXPECT_TRUE(loaded.damaged && files.Get(loaded.keptAs) == bytes);
}

TEST_F(Loading, NotesThatShareAnIdArePartedWithTheirContent) {
  Put(kFile,
      u"[Jotlets]\n<ID>Aa<RTF>\n<ID>aA<RTF>\n<ID>AA<RTF>{\\rtf1 own}\n<ID>FRESH3<RTF>\n[Deleted "
      u"jotlets]\n<ID>aa<RTF>\n");
  PutContent({u"rtf\\Aa.rtf"});
  const LoadedData loaded = Load();
  EXPECT_EQ(Ids(loaded.file.jotlets) + Ids(loaded.file.deleted), u"Aa FRESH1 FRESH2 FRESH3 FRESH4 ");
  for (const TextView id : {u"Aa", u"FRESH1", u"FRESH4"}) EXPECT_EQ(Content(id), "content of rtf\\Aa.rtf");
  EXPECT_EQ(Content(u"FRESH2"), "{\\rtf1 own}");
}

TEST_F(Loading, ClosedNotesBeyondTheLimitAreLeftOut) {
  const auto kept = [this](TextView keepDeleted) {
    Put(kFile, Text(u"[Options]\nKeepDeleted=")
                   .append(keepDeleted)
                   .append(u"\n[Deleted jotlets]\n<ID>A<RTF>\n<ID>B<RTF>\n<ID>C<RTF>{\\rtf1 c}\n"));
    return Ids(Load().file.deleted);
  };
  EXPECT_EQ(kept(u"0"), u"");
  EXPECT_EQ(kept(u"2"), u"A B ");
  EXPECT_EQ(Content(u"C"), "(missing)");
  EXPECT_EQ(kept(u"5"), u"A B C ");
  EXPECT_EQ(kept(u"-1"), u"A B C ") << "as by default";
}

class ContentCheck : public Loading {
 protected:
  std::vector<Orphan> Check(const std::vector<ContentClaim>& claims) {
    ContentFiles contents(files, kFolder);
    for (const ContentClaim& claim : claims) {
      const Text missing = contents.Claim(claim);
      if (!missing.empty()) lines.push_back(missing);
    }
    return contents.Unclaimed();
  }

  std::vector<Text> lines;
};

TEST_F(ContentCheck, MissingContentsAreLoggedAndNothingIsWritten) {
  PutContent({u"rtf\\HERE.rtf", u"rtf\\P.rtf"});  // P.rtf is the text of another note, not the picture of P
  Check({{u"Desktop", u"A"}, {u"Desktop", u"here"}, {u"Closed", u"P", true}, {u"Stored", u"X"}});
  const Text ending = u".rtf' content file not found, fixing with a placeholder file";
  EXPECT_EQ(lines,
            (std::vector<Text>{u"!!! Desktop 'A" + ending, u"!!! Closed 'P.png' content file not found",
                               u"!!! Stored 'X" + ending}));
  EXPECT_EQ(files.Paths().size(), 2u) << "a file that comes later finds its place free";
}

TEST_F(ContentCheck, ContentThatIsThereIsNotReplacedWhateverTheListingSays) {
  PutContent({u"rtf\\A.rtf"});
  files.listsNothing = true;
  Check({{u"Desktop", u"A"}});
  EXPECT_TRUE(lines.empty());
}

TEST_F(ContentCheck, FilesThatNoNoteClaimsAreOrphans) {
  PutContent({u"rtf\\Z.rtf", u"rtf\\b.rtf", u"rtf\\A.rtf", u"rtf\\MINE.rtf", u"rtf\\note.txt",
              u"images\\MINE.png", u"images\\P.PNG", u"images\\Q.png"});
  EXPECT_EQ(
      Check({{u"Desktop", u"mInE"}, {u"Sleeping/recurring", u"q", true}}),
      (std::vector<Orphan>{{u"A", false}, {u"b", false}, {u"Z", false}, {u"MINE", true}, {u"P", true}}));
  EXPECT_TRUE(lines.empty());
}

}  // namespace
}  // namespace jotlets

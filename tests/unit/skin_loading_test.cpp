#include "skin/skin_loading.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include "fakes.h"
#include "skin/skin_library.h"
#include "skin/zip_archive.h"

namespace jotlets {
namespace {

std::string Little(std::uint64_t value, int bytes) {
  std::string out;
  for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>(i < 8 ? value >> 8 * i : 0));
  return out;
}

std::string Deflated(std::string_view bytes) {
  z_stream stream{};
  EXPECT_EQ(deflateInit2(&stream, 9, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY), Z_OK);
  std::string out(deflateBound(&stream, static_cast<uLong>(bytes.size())), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  stream.avail_in = static_cast<uInt>(bytes.size());
  stream.next_out = reinterpret_cast<Bytef*>(out.data());
  stream.avail_out = static_cast<uInt>(out.size());
  EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
  out.resize(stream.total_out);
  deflateEnd(&stream);
  return out;
}

struct Packed {
  std::string name, bytes;
  bool deflated = true;
  int flags = 0, method = -1;  // -1: as `deflated` says
  std::int64_t size = -1;      // -1: as it is
};

// Local headers carry no sizes, as from programs that write in one pass, and an extra field of their own.
std::string Zip(const std::vector<Packed>& files, const std::string& comment = {}) {
  std::string out, directory;
  for (const Packed& f : files) {
    const std::string packed = f.deflated ? Deflated(f.bytes) : f.bytes;
    const auto crc =
        crc32(0, reinterpret_cast<const Bytef*>(f.bytes.data()), static_cast<uInt>(f.bytes.size()));
    const int method = f.method >= 0 ? f.method : f.deflated ? 8 : 0;
    const std::string start = Little(20, 2) + Little(f.flags, 2) + Little(method, 2) + Little(0, 4);
    directory += "PK\1\2" + Little(20, 2) + start + Little(crc, 4) + Little(packed.size(), 4) +
                 Little(f.size >= 0 ? f.size : f.bytes.size(), 4) + Little(f.name.size(), 2) + Little(0, 12) +
                 Little(out.size(), 4) + f.name;
    out +=
        "PK\3\4" + start + Little(0, 12) + Little(f.name.size(), 2) + Little(3, 2) + f.name + "xyz" + packed;
  }
  const std::string end = "PK\5\6" + Little(0, 4) + Little(files.size(), 2) + Little(files.size(), 2) +
                          Little(directory.size(), 4) + Little(out.size(), 4) + Little(comment.size(), 2);
  return out + directory + end + comment;
}

const std::string kText(100, 'a');

TEST(ZipArchive, GivesStoredAndDeflatedFilesByName) {
  const std::string bytes =
      Zip({{"folder/a.ini", "wrong"}, {"A.ini", kText}, {"empty", "", false}, {"b", kText, false}},
          "a comment with PK\5\6 in it, and more than the record is long");
  const ZipArchive archive(bytes);
  EXPECT_EQ(archive.Read("a.INI"), kText);
  EXPECT_EQ(archive.Read("b"), kText);
  EXPECT_EQ(archive.Read("empty"), "");
  for (const char* name : {"folder/a.ini", "a", "a.ini2", "", "folder\\a.ini"})
    EXPECT_FALSE(archive.Read(name));
}

TEST(ZipArchive, NeverGivesMoreThanIsAskedForOrDeclared) {
  const std::string bytes = Zip({{"true", kText},
                                 {"less", kText, true, 0, -1, 99},
                                 {"more", kText, true, 0, -1, 101},
                                 {"stored", kText, false, 0, -1, 99}});
  const ZipArchive archive(bytes);
  EXPECT_TRUE(archive.Read("true", 100));
  EXPECT_FALSE(archive.Read("true", 99));
  for (const char* name : {"less", "more", "stored"}) EXPECT_FALSE(archive.Read(name)) << name;
}

TEST(ZipArchive, RefusesWhatItCannotRead) {
  for (const Packed& file : {Packed{"a", kText, true, 1}, Packed{"a", kText, true, 0, 12}})
    EXPECT_FALSE(ZipArchive(Zip({file})).Read("a"));
  const std::string good = Zip({{"a", kText, false}});
  ASSERT_TRUE(ZipArchive(good).Read("a"));
  const auto changed = [&good](std::size_t at, char to) {
    std::string bytes = good;
    bytes[at] = to;
    return bytes;
  };
  const std::size_t end = good.size() - 22;
  // Another disk, more entries than are there, a directory elsewhere, changed content.
  for (const auto& [at, to] : {std::pair{end + 4, '\1'},
                               {end + 8, '\2'},
                               {end + 10, '\2'},
                               {end + 16, '\0'},
                               {end + 19, '\xFF'},
                               {good.find("aaaa") + 9, 'b'}}) {
    const std::string bytes = changed(at, to);
    EXPECT_FALSE(ZipArchive(bytes).Read("a")) << at - end;
  }
  for (std::size_t length = 0; length < good.size(); ++length)
    EXPECT_FALSE(ZipArchive(std::string_view(good).substr(0, length)).Read("a"));
}

// A 1 x 1 sheet whose blue tells skins apart.
std::string Sheet(std::uint8_t blue) { return EncodePng({{1, 1}, {blue, 0, 0, 255}}); }
std::string SkinText(const std::string& name) {
  return "skinname=" + name + "\nnotes=n\nbitmap=p.png\n[text]\n";
}

class SkinLoading : public testing::Test {
 protected:
  const std::string builtInText = SkinText("built-in"),
                    builtInStack = "mode=stack\nskinname=built-in stack\n";
  const std::string builtInSheet = Sheet(99);
  FakeFiles files;
  FakeLog log;
  Latin1 ansi;
  SkinFolder folder{files, ansi, log, u"C:\\skins\\"};
  const std::string secondText = SkinText("Second"),
                    twice = EncodePng({{2, 2}, std::vector<std::uint8_t>(16, 200)});
  SkinLibrary library{folder,
                      {{u"First", {builtInText, builtInSheet, {}}, {builtInStack, builtInSheet, {}}},
                       {u"Second", {secondText, builtInSheet, {{200, twice, {}}}}, {}}}};

  void PutLoose(TextView name, const std::string& text) {
    files.Put(u"C:\\skins\\" + Text(name), text);
    files.Put(u"C:\\skins\\p.png", Sheet(1));
  }
  void PutPackage(TextView name, const std::vector<Packed>& packed) {
    files.Put(u"C:\\skins\\" + Text(name), Zip(packed));
  }
  // Name, file and blue of the skin's sheet; "-" for none.
  static std::string Shown(const LoadedSkin* skin) {
    if (skin == nullptr) return "-";
    return ToUtf8(skin->data.skinName + u" " + skin->path + u" " + IntText(skin->sheet.pixels.at(0)));
  }
  std::string Loaded(TextView name, bool forStack = false) {
    const auto skin = LoadSkin(folder, name, forStack);
    return Shown(skin ? &*skin : nullptr);
  }
};

TEST_F(SkinLoading, TakesThePackageBeforeLooseFiles) {
  PutLoose(u"Red.ini", SkinText("loose"));
  EXPECT_EQ(Loaded(u"red"), "loose C:\\skins\\red.ini 1");
  PutPackage(u"Red.jsk",
             {{"RED.INI", SkinText("packed")}, {"stack.ini", SkinText("packed stack")}, {"p.png", Sheet(2)}});
  for (const TextView name : {u"Red", u"red.ini", u"RED.JSK"})
    EXPECT_TRUE(Loaded(name).starts_with("packed C:")) << ToUtf8(name);
  EXPECT_EQ(Loaded(u"Red", true), "packed stack C:\\skins\\Red.jsk 2");
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(SkinLoading, UnderstandsTheEncodingsOfTextFiles) {
  for (const std::string& text : {std::string("\xFF\xFEs\0k\0i\0n\0n\0a\0m\0e\0=\0\xE9\0\n\0", 24) +
                                      std::string("b\0i\0t\0m\0a\0p\0=\0p\0.\0p\0n\0g\0", 24),
                                  std::string("\xEF\xBB\xBFskinname=\xC3\xA9\nbitmap=p.png"),
                                  std::string("skinname=\xE9\nbitmap=p.png")}) {
    PutLoose(u"a.ini", text);
    EXPECT_EQ(Loaded(u"a"), "\xC3\xA9 C:\\skins\\a.ini 1");
  }
  PutPackage(u"\u00E9.jsk", {{"\xC3\xA9.ini", SkinText("utf-8")}, {"p.png", Sheet(1)}});
  EXPECT_NE(Loaded(u"\u00E9"), "-");
  PutPackage(u"\u00E9.jsk", {{"\xE9.ini", SkinText("ansi")}, {"p.png", Sheet(1)}});
  EXPECT_NE(Loaded(u"\u00E9"), "-");
}

TEST_F(SkinLoading, SaysWhatCannotBeRead) {
  PutPackage(u"a.jsk", {{"b.ini", SkinText("of another name")}, {"p.png", Sheet(2)}});
  PutLoose(u"a.ini", SkinText("loose, behind a package"));
  PutPackage(u"c.jsk", {{"c.ini", SkinText("c")}, {"p.png", "no picture"}});
  files.Put(u"C:\\skins\\d.jsk", "no archive");
  PutLoose(u"e.ini", "bitmap=..\\p.png");
  files.Put(u"C:\\skins\\..\\p.png", Sheet(1));
  PutLoose(u"g.ini", SkinText("too long") + std::string(9 << 20, ' '));
  for (const TextView name : {u"a", u"c", u"d", u"e", u"f", u"g"})
    EXPECT_EQ(Loaded(name), "-") << ToUtf8(name);
  ASSERT_EQ(log.lines.size(), 6u);
  const TextView kEnds[] = {u" (skin in jsk: a.jsk)",
                            u" (skin in jsk: c.jsk)",
                            u" (skin in jsk: d.jsk)",
                            u"..\\p.png",
                            u"f.ini",
                            u"g.ini"};
  for (std::size_t i = 0; i < 6; ++i) EXPECT_TRUE(log.lines[i].ends_with(kEnds[i])) << ToUtf8(log.lines[i]);
  // Never outside of the folder.
  files.Put(u"C:\\skins\\..\\out.ini", SkinText("out"));
  for (const TextView name : {u"..\\out", u"C:\\out.ini", u"", u".ini", u"x/../a"})
    EXPECT_EQ(Loaded(name), "-");
}

TEST_F(SkinLoading, LoadsOneFileFromAnywhere) {
  files.Put(u"D:\\get\\x.jsk", Zip({{"x.ini", SkinText("x")}, {"p.png", Sheet(3)}}));
  files.Put(u"D:\\get\\y.INI", SkinText("y"));
  files.Put(u"D:\\get\\p.png", Sheet(4));
  const auto shown = [this](TextView path) {
    const auto skin = LoadSkinFile(folder, path);
    return Shown(skin ? &*skin : nullptr);
  };
  EXPECT_EQ(shown(u"D:\\get\\x.jsk"), "x D:\\get\\x.jsk 3");
  EXPECT_EQ(shown(u"D:\\get\\y.INI"), "y D:\\get\\y.INI 4");
  for (const TextView path : {u"D:\\get\\p.png", u"D:\\get\\", u"D:\\get\\z.jsk"})
    EXPECT_EQ(shown(path), "-");
}

TEST_F(SkinLoading, ReadsASkinOnceForAllThatHoldIt) {
  PutLoose(u"a.ini", SkinText("a"));
  const auto first = library.Get(u"a", false);
  PutLoose(u"a.ini", SkinText("changed"));
  EXPECT_EQ(library.Get(u"A.ini", false), first);
  EXPECT_NE(library.Get(u"a", true), first);
  library.Forget();
  const auto second = library.Get(u"a", false);
  EXPECT_EQ(ToUtf8(first->data.skinName + second->data.skinName), "achanged");
  const std::weak_ptr<const LoadedSkin> watched = library.Get(u"a", true);
  EXPECT_TRUE(watched.expired());
}

TEST_F(SkinLoading, FallsBackToTheBuiltInSkinAndDoesNotTryAgain) {
  const auto builtIn = library.Get(u"", false);
  EXPECT_EQ(Shown(builtIn.get()), "built-in  99");
  EXPECT_EQ(Shown(library.Get(u"", true).get()), "built-in stack  99");
  EXPECT_TRUE(log.lines.empty());
  EXPECT_EQ(library.Get(u"gone", false), builtIn);
  EXPECT_EQ(log.lines.back(), u"Failed to set skin:gone");
  const std::size_t lines = log.lines.size();
  PutLoose(u"gone.ini", SkinText("back"));
  EXPECT_EQ(library.Get(u"Gone", false), builtIn);
  EXPECT_EQ(log.lines.size(), lines);
  library.Forget();
  EXPECT_EQ(Shown(library.Get(u"gone", false).get()), "back C:\\skins\\gone.ini 1");
}

TEST_F(SkinLoading, KnowsBuiltInSkinsByTheirNamesUnlessTheFolderHasThem) {
  EXPECT_EQ(Shown(library.Get(u"second", false).get()), "Second  99");
  EXPECT_EQ(Shown(library.Get(u"second", true).get()), "built-in stack  99") << "it has none of its own";
  EXPECT_TRUE(log.lines.empty());
  PutLoose(u"second.ini", SkinText("mine"));
  library.Forget();
  EXPECT_EQ(Shown(library.Get(u"Second", false).get()), "mine C:\\skins\\Second.ini 1");
}

TEST_F(SkinLoading, MakesASkinOnceForEachScale) {
  const auto usual = library.Get(u"Second", false);
  const auto larger = library.Get(u"Second", false, 144);
  EXPECT_EQ(library.Get(u"Second", false, 144), larger);
  EXPECT_EQ(library.Get(u"Second", false, 96), usual);
  EXPECT_TRUE(larger->usual == usual && larger->data.dpi == 144 && larger->sheet.size == (Size{2, 2}));
  EXPECT_EQ(larger->sheet.pixels[0], 200) << "the sheet for 200 % serves smaller scales too";
  EXPECT_EQ(library.Get(u"Second", false, 288)->sheet.pixels[0], 99) << "but not larger ones";
  // Sheets beside the usual one, of which one has a wrong size and one is none.
  PutLoose(u"a.ini", SkinText("a"));
  files.Put(u"C:\\skins\\p@1.5x.png", "no picture");
  files.Put(u"C:\\skins\\p@2x.png", EncodePng({{3, 3}, std::vector<std::uint8_t>(36, 7)}));
  files.Put(u"C:\\skins\\p@3x.png", EncodePng({{3, 3}, std::vector<std::uint8_t>(36, 8)}));
  EXPECT_EQ(library.Get(u"a", false, 120)->sheet.pixels[0], 8);
}

TEST_F(SkinLoading, ListsEverySkinOfTheFolder) {
  PutLoose(u"b.ini", SkinText("B"));
  PutLoose(u"z.ini", "mode=stack\nauthorname=a\nauthoremail=e\nauthorurl=u");
  PutLoose(u"C.ini", SkinText("hidden by a package"));
  PutPackage(u"C.jsk", {{"c.ini", SkinText("C")}, {"stack.ini", SkinText("C stack")}});
  PutPackage(u"A.jsk", {{"a.ini", SkinText("A")}});
  files.Put(u"C:\\skins\\d.jsk", "no archive");
  PutPackage(u"Stack.jsk", {{"stack.ini", SkinText("S")}});
  std::string shown;
  for (const SkinSummary& s : library.List()) {
    shown += ToUtf8(s.name + u":" + s.skinName + u"," + s.notes + u"," + s.authorName + s.authorEmail +
                    s.authorUrl) +
             (s.isStack ? "+ " : " ");
  }
  EXPECT_EQ(shown, "Second:Second,n, A:A,n, b:B,n, C:C,n, C:C stack,n,+ Stack:S,n, z:,,aeu+ ");
}

}  // namespace
}  // namespace jotlets

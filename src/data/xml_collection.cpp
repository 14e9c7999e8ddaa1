// The collections that are XML.
#include <deque>
#include <utility>

#include "data/note_collection.h"
#include "data/text_import.h"
#include "data/written_time.h"
#include "data/xml_reader.h"

namespace jotlets {
namespace {

using List = TextParagraph::List;

constexpr TextView kTooLarge = u"the note is over 4 MB";

TextParagraph Paragraph(TextView words, List list = List::kNoList) {
  TextParagraph paragraph;
  paragraph.list = list;
  paragraph.runs.emplace_back();
  paragraph.runs.back().text = words;
  return paragraph;
}

// A tag as the search finds it: one word.
Text TagWord(TextView name) {
  Text word = u"#";
  for (const char16_t unit : TrimBlanks(name)) {
    const char16_t small = unit | 0x20;
    const bool isPart = unit >= 0x80 || (small >= u'a' && small <= u'z') || (unit >= u'0' && unit <= u'9') ||
                        unit == u'_' || unit == u'-';
    word.push_back(isPart ? unit : u'-');
  }
  return word.size() > 1 ? word : Text();
}

// Notes as they become whole.
class XmlCollection : public NoteCollection, private XmlReader {
 public:
  explicit XmlCollection(std::string bytes) : XmlReader(std::move(bytes)) {}

  State Next(CollectedNote& note) final {
    if (ready_.empty() && ReadPiece()) return State::kReading;
    if (ready_.empty()) return State::kEnd;
    note = std::move(ready_.front());
    ready_.pop_front();
    return State::kNote;
  }
  const Text& Fault() const final { return XmlFault(); }
  int Percent() const final { return PercentRead(); }

 protected:
  using Attributes = XmlReader::Attributes;

  void Add(CollectedNote note) { ready_.push_back(std::move(note)); }

 private:
  std::deque<CollectedNote> ready_;
};

class EnexNotes final : public XmlCollection {
 public:
  using XmlCollection::XmlCollection;

 private:
  void OnBegin(std::string_view name, const Attributes&) override {
    ++depth_;
    if (name == "note" && noteDepth_ == 0) {
      noteDepth_ = depth_;
      note_ = {};
      size_ = 0;
      tags_.clear();
    }
    words_.clear();
    if (depth_ == noteDepth_ + 1) attachment_.clear();
    reads_ = noteDepth_ > 0 && name != "data";
  }

  void OnWords(std::string_view words) override {
    if (!reads_) return;
    size_ += words.size();
    if (size_ > kLargestCollectedNote) return words_.clear();
    words_ += words;
  }

  void OnEnd(std::string_view name) override {
    if (noteDepth_ > 0 && depth_ == noteDepth_ + 1) EndField(name);
    // Of an attachment, and of a task.
    if (noteDepth_ > 0 && (name == "file-name" || name == "title")) attachment_ = OneLine(FromUtf8(words_));
    if (depth_ == noteDepth_) EndNote();
    words_.clear();
    reads_ = noteDepth_ > 0;
    --depth_;
  }

  void EndField(std::string_view name) {
    const Text words = FromUtf8(words_);
    if (name == "title") {
      note_.title = OneLine(words);
    } else if (name == "content") {
      note_.paragraphs = TextOfHtml(words).paragraphs;
      if (words.find(u"<en-crypt") != Text::npos) Leave(u"its encrypted words");
    } else if (name == "created") {
      note_.created = ParseWrittenTime(words);
    } else if (name == "updated") {
      note_.modified = ParseWrittenTime(words);
    } else if (name == "tag") {
      const Text tag = TagWord(OneLine(words));
      if (!tag.empty()) tags_.append(tags_.empty() ? u"" : u" ").append(tag);
    } else if (name == "resource" || name == "task") {
      Leave(name == "task"        ? u"its task '" + attachment_ + u"'"
            : attachment_.empty() ? Text(u"a picture or file without a name")
                                  : u"its file '" + attachment_ + u"'");
    }
  }

  void Leave(Text what) {
    constexpr std::size_t kMaximumNamed = 50;
    if (note_.left.size() == kMaximumNamed) what = u"more";
    if (note_.left.size() <= kMaximumNamed) note_.left.push_back(std::move(what));
  }

  void EndNote() {
    noteDepth_ = 0;
    if (size_ > kLargestCollectedNote) note_ = {.title = note_.title, .fault = Text(kTooLarge)};
    if (!tags_.empty()) note_.paragraphs.push_back(Paragraph(tags_));
    Add(std::exchange(note_, {}));
  }

  std::size_t depth_ = 0;
  std::size_t noteDepth_ = 0;  // 0 outside of notes
  bool reads_ = false;
  std::string words_;
  std::size_t size_ = 0;  // of all words of the note
  CollectedNote note_;
  Text tags_;
  Text attachment_;
};

class OpmlNotes final : public XmlCollection {
 public:
  using XmlCollection::XmlCollection;

 private:
  void OnBegin(std::string_view name, const Attributes& attributes) override {
    if (name != "outline") return;
    ++level_;
    const Text words = WordsOf(attributes);
    if (level_ == 1) {
      note_ = {};
      note_.title = OneLine(words);
      note_.created = ParseWrittenTime(FromUtf8(attributes.Find("created")));
      size_ = words.size();
      AddLines(FromUtf8(attributes.Find("_note")));
    } else {
      AddParagraph(words, true);
      AddLines(FromUtf8(attributes.Find("_note")));
    }
  }

  void OnEnd(std::string_view name) override {
    if (name != "outline" || --level_ > 0) return;
    if (size_ > kLargestCollectedNote) note_ = {.title = note_.title, .fault = Text(kTooLarge)};
    Add(std::exchange(note_, {}));
  }

  void OnWords(std::string_view) override {}

  static Text WordsOf(const Attributes& attributes) {
    const std::string_view text = attributes.Find("text");
    Text words = FromUtf8(text.empty() ? attributes.Find("title") : text);
    for (const char* name : {"url", "htmlUrl", "xmlUrl"})
      if (const std::string_view target = attributes.Find(name); !target.empty())
        return LinkWords(words, FromUtf8(target));
    return words;
  }

  void AddLines(const Text& lines) {
    for (TextView rest = lines; !rest.empty();) {
      const Split split = SplitAtFirst(rest, u'\n');
      AddParagraph(split.head, false);
      rest = split.tail;
    }
  }

  // An item that says nothing takes memory too.
  void AddParagraph(TextView words, bool item) {
    constexpr std::size_t kOwnSize = 64;
    size_ += words.size() + kOwnSize;
    if (size_ > kLargestCollectedNote) return note_.paragraphs.clear();
    TextParagraph paragraph = Paragraph(words, item ? List::kBullets : List::kNoList);
    if (item) paragraph.level = static_cast<std::uint8_t>(std::min<std::size_t>(level_ - 2, 255));
    note_.paragraphs.push_back(std::move(paragraph));
  }

  std::size_t level_ = 0;
  std::size_t size_ = 0;
  CollectedNote note_;
};

}  // namespace

std::unique_ptr<NoteCollection> NotesOfEnex(std::string bytes) {
  return std::make_unique<EnexNotes>(std::move(bytes));
}

std::unique_ptr<NoteCollection> NotesOfOpml(std::string bytes) {
  return std::make_unique<OpmlNotes>(std::move(bytes));
}

}  // namespace jotlets

#include <algorithm>
#include <utility>

#include "data/text_file.h"
#include "data/text_import.h"

namespace jotlets {
namespace {

using List = TextParagraph::List;

constexpr TextView kOpenBox = u"\u2610 ";
constexpr TextView kTickedBox = u"\u2611 ";
constexpr int kSmallestHeading = 6;

bool IsBlank(char16_t unit) { return unit == u' ' || unit == u'\t'; }
bool IsPunctuation(char16_t unit) {
  return unit > u' ' && unit < 0x7F &&
         TextView(u"!\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~").find(unit) != TextView::npos;
}

// Where a mark comes next: looked for once for all places before it, so that many that lack it cost no more
// than one.
class NextMark {
 public:
  NextMark(TextView text, TextView mark) : text_(text), mark_(mark) {}
  /// At `from` or behind it, which is never less than before.
  std::size_t From(std::size_t from) {
    if (at_ < from || !known_) at_ = text_.find(mark_, from);
    known_ = true;
    return at_;
  }

 private:
  TextView text_;
  TextView mark_;
  std::size_t at_ = 0;
  bool known_ = false;
};

// Words with emphasis. Marks that are not closed stay what they look like.
class InlineReader {
 public:
  explicit InlineReader(TextView text) : text_(text), middle_(text, u"]("), end_(text, u")") {}

  std::vector<TextRun> Read() {
    while (at_ < text_.size()) ReadOne();
    return std::move(runs_);
  }

 private:
  struct Emphasis {
    TextView mark;
    bool TextRun::*member;
  };
  static constexpr Emphasis kEmphases[] = {{u"**", &TextRun::bold},
                                           {u"__", &TextRun::bold},
                                           {u"~~", &TextRun::strikethrough},
                                           {u"*", &TextRun::italic},
                                           {u"_", &TextRun::italic}};

  void ReadOne() {
    const TextView rest = text_.substr(at_);
    if (rest.front() == u'\\' && rest.size() > 1 && (IsPunctuation(rest[1]) || rest[1] == u'\n')) {
      Add(rest.substr(1, 1));
      at_ += 2;
    } else if (rest.front() == u'`') {
      ReadCode(rest);
    } else if (rest.front() == u'&') {
      std::size_t length = 0;
      const Text character = CharacterOfEntity(rest, length);
      length == 0 ? AddSigns(1) : Add(character);
      at_ += length;
    } else if (!ReadLink(rest) && !ReadEmphasis(rest)) {
      AddSigns(1);
    }
  }

  void Add(TextView words) {
    if (runs_.empty() || !runs_.back().LooksAs(look_)) runs_.push_back(look_);
    runs_.back().text += words;
  }
  void AddSigns(std::size_t count) {
    Add(text_.substr(at_, count));
    at_ += count;
  }

  void ReadCode(TextView rest) {
    // More in a row are drawn, not written.
    constexpr std::size_t kLongestMark = 32;
    const std::size_t ticks = std::min(rest.find_first_not_of(u'`'), rest.size());
    if (ticks > kLongestMark) return AddSigns(ticks);
    const std::size_t end = rest.find(rest.substr(0, ticks), ticks);
    if (end == TextView::npos) return AddSigns(ticks);
    Add(rest.substr(ticks, end - ticks));
    at_ += end + ticks;
  }

  bool ReadLink(TextView rest) {
    rest = rest.substr(0, kLongestLink);
    if (rest.front() == u'<') return ReadBareLink(rest);
    const std::size_t begin = rest.front() == u'!' ? 1 : 0;
    if (begin >= rest.size() || rest[begin] != u'[') return false;
    const std::size_t middle = middle_.From(at_ + begin);
    if (middle == TextView::npos || middle - at_ >= rest.size()) return false;
    const std::size_t end = end_.From(middle);
    if (end == TextView::npos || end - at_ >= rest.size()) return false;
    const TextView words = text_.substr(at_ + begin + 1, middle - at_ - begin - 1);
    TextView target = text_.substr(middle + 2, end - middle - 2);
    target = target.substr(0, target.find_first_of(u" \n"));
    // A picture is not part of a text.
    Add(begin == 1 ? Text(words) : LinkWords(words, target));
    at_ = end + 1;
    return true;
  }

  // "<http://...>". Where another one begins, this one has not ended.
  bool ReadBareLink(TextView rest) {
    const std::size_t end = rest.find_first_of(u"<> \n", 1);
    if (end == TextView::npos || rest[end] != u'>') return false;
    const TextView target = rest.substr(1, end - 1);
    if (target.find(u':') == TextView::npos) return false;
    Add(target);
    at_ += end + 1;
    return true;
  }

  bool ReadEmphasis(TextView rest) {
    for (const Emphasis& emphasis : kEmphases) {
      if (!rest.starts_with(emphasis.mark)) continue;
      const std::size_t length = emphasis.mark.size();
      const char16_t before = at_ > 0 ? text_[at_ - 1] : u' ';
      const char16_t after = length < rest.size() ? rest[length] : u' ';
      const bool isOpen = look_.*(emphasis.member);
      const bool inWord = emphasis.mark.front() == u'_' && IsWord(before) && IsWord(after);
      const bool fits =
          isOpen ? before > u' ' : after > u' ' && rest.find(emphasis.mark, length) != TextView::npos;
      if ((!fits || inWord) && length == 1) continue;
      // Two signs that are no mark are not one of one sign each.
      if (!fits || inWord) return AddSigns(length), true;
      look_.*(emphasis.member) = !isOpen;
      at_ += length;
      return true;
    }
    return false;
  }
  static bool IsWord(char16_t unit) { return unit > u' ' && !IsPunctuation(unit); }

  static constexpr std::size_t kLongestLink = 2000;

  TextView text_;
  NextMark middle_;  // of a link
  NextMark end_;
  std::size_t at_ = 0;
  TextRun look_;
  std::vector<TextRun> runs_;
};

class MarkdownReader {
 public:
  ImportedText Read(TextView markdown) {
    LineReader lines(ReadFrontMatter(markdown));
    TextView line;
    while (lines.Next(line)) ReadLine(line);
    EndParagraph();
    return std::move(text_);
  }

 private:
  TextView ReadFrontMatter(TextView markdown) {
    LineReader lines(markdown);
    TextView line;
    if (!lines.Next(line) || line != u"---") return markdown;
    Text title;
    while (lines.Next(line)) {
      if (StartsWithIgnoreCase(line, u"title:")) title = TrimBlanks(line.substr(6));
      if (line != u"---" && line != u"...") continue;
      text_.title = Unquoted(title);
      return markdown.substr(static_cast<std::size_t>(line.data() + line.size() - markdown.data()));
    }
    return markdown;
  }

  static Text Unquoted(TextView value) {
    if (value.size() < 2 || value.front() != u'"' || value.back() != u'"') return Text(value);
    value = value.substr(1, value.size() - 2);
    Text words;
    for (std::size_t at = 0; at < value.size(); ++at) {
      const bool escapes = value[at] == u'\\' && at + 1 < value.size();
      if (escapes && (value[at + 1] == u'"' || value[at + 1] == u'\\')) ++at;
      words.push_back(value[at]);
    }
    return words;
  }

  void ReadLine(TextView line) {
    const bool fence = TrimBlanks(line).starts_with(u"```") || TrimBlanks(line).starts_with(u"~~~");
    if (fence || inCode_) {
      EndParagraph();
      if (fence) inCode_ = !inCode_;
      if (!fence) AddVerbatim(line);
      return;
    }
    TextView words = TrimBlanks(line);
    while (words.starts_with(u'>')) words = TrimBlanks(words.substr(1));
    if (words.empty() || IsRule(words)) return EndParagraph();
    if (ReadHeading(words) || ReadItem(words)) return;
    if (!open_) Begin(List::kNoList);
    Go(words, line);
  }

  // A line of dashes below words would make a heading of them; as notes are written, it parts them.
  static bool IsRule(TextView words) {
    return words.size() >= 3 && words.find_first_not_of(u"-*_ ") == TextView::npos &&
           std::ranges::count(words, words.front()) >= 3;
  }

  bool ReadHeading(TextView words) {
    const std::size_t level = words.find_first_not_of(u'#');
    if (level == 0 || level > kSmallestHeading || level >= words.size() || !IsBlank(words[level]))
      return false;
    Begin(List::kNoList);
    now_.heading = static_cast<std::uint8_t>(level);
    TextView title = TrimBlanks(words.substr(level));
    // Signs that close it.
    const std::size_t last = title.find_last_not_of(u'#');
    if (last != TextView::npos && IsBlank(title[last])) title = TrimBlanks(title.substr(0, last));
    lines_ = title;
    EndParagraph();
    return true;
  }

  bool ReadItem(TextView words) {
    std::size_t mark = 0;
    List list = List::kBullets;
    if (TextView(u"-*+").find(words.front()) != TextView::npos) {
      mark = 1;
    } else {
      mark = words.find_first_not_of(u"0123456789");
      if (mark == 0 || mark == TextView::npos || mark > 9 || (words[mark] != u'.' && words[mark] != u')'))
        return false;
      ++mark;
      list = List::kNumbers;
    }
    if (mark >= words.size() || !IsBlank(words[mark])) return false;
    words = TrimBlanks(words.substr(mark));
    const bool open = words.starts_with(u"[ ] ");
    const bool ticked = StartsWithIgnoreCase(words, u"[x] ");
    Begin(open || ticked ? List::kNoList : list);
    if (open || ticked) box_ = open ? kOpenBox : kTickedBox;
    Go(open || ticked ? words.substr(4) : words, words);
    return true;
  }

  void Begin(List list) {
    EndParagraph();
    open_ = true;
    now_.list = list;
  }

  // Lines of one paragraph go on after each other, unless one says that it ends.
  void Go(TextView words, TextView line) {
    if (!lines_.empty()) lines_ += breaks_ ? u"\n" : u" ";
    lines_ += words;
    breaks_ = line.ends_with(u"  ");
    if (words.ends_with(u'\\') && !words.ends_with(u"\\\\")) {
      lines_.pop_back();
      breaks_ = true;
    }
  }

  void AddVerbatim(TextView line) {
    TextRun run;
    run.text = line;
    text_.paragraphs.emplace_back();
    if (!line.empty()) text_.paragraphs.back().runs.push_back(std::move(run));
  }

  void EndParagraph() {
    if (open_ || !lines_.empty()) {
      now_.runs = InlineReader(lines_).Read();
      if (!box_.empty()) {
        TextRun box;
        box.text = box_;
        now_.runs.insert(now_.runs.begin(), std::move(box));
      }
      text_.paragraphs.push_back(std::exchange(now_, {}));
    }
    lines_.clear();
    box_ = {};
    open_ = breaks_ = false;
  }

  ImportedText text_;
  TextParagraph now_;
  Text lines_;
  TextView box_;
  bool open_ = false;
  bool breaks_ = false;
  bool inCode_ = false;
};

}  // namespace

ImportedText TextOfMarkdown(TextView markdown) { return MarkdownReader().Read(markdown); }

}  // namespace jotlets

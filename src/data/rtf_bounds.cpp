#include "data/rtf_bounds.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "base/code_pages.h"
#include "data/letter_marks.h"
#include "data/rtf_bytes.h"

namespace jotlets {
namespace {

constexpr std::uint64_t kWorkOfUnit = 67;
constexpr std::uint64_t kWorkOfLink = 2'250;
constexpr std::uint64_t kWorkOfFormat = 900;
constexpr std::uint64_t kUnitsOfLook = 16;
constexpr std::size_t kLongestWords = 32 * 1024;
constexpr std::size_t kLongestLine = 120;
// Of a control word, in characters; the longest that exist have 32 and 10.
constexpr std::size_t kLongestWord = 64;
constexpr std::size_t kLongestNumber = 20;

constexpr TextView kNoRichText = u"no rich text";
constexpr TextView kTooDeep = u"its groups are nested too deep";
constexpr TextView kTables = u"its tables are damaged, or not for this editor";
constexpr TextView kMarks = u"its signs above and below letters are not for this editor";
constexpr TextView kWords = u"its control words are longer than any";
constexpr TextView kMeasures = u"its indents or letters are larger than any page";
constexpr TextView kTooLong = u"its paragraphs, links or formats are too many or too long";

// Adds up what is shown. Every colon may be that of a link. The control lays a paragraph out in runs that end
// where letters and other signs meet, and goes through each as often as it has units.
class WorkCounter {
 public:
  /// A unit that is not told `apart` for certain goes on with any run.
  void Add(char16_t unit, bool apart = true) {
    if (const Run kind = apart ? RunOf(unit) : Run::kAny; kind != Run::kAny) {
      if (kind != kind_) BeginRun();
      kind_ = kind;
    }
    ++run_;
    ++paragraph_;
    work_ += kWorkOfUnit;
    work_ += 2 * run_ - 1;  // together, the square of the length
    if ((unit == u':' && MayEndScheme()) || (unit == u'.' && before_[2] == u'w')) work_ += kWorkOfLink;
    before_ = {before_[1], before_[2], static_cast<char16_t>(unit | 0x20)};
  }
  /// One that is written in some other way, whatever it is.
  void AddUnknown() {
    Add(u' ', false);
    before_[2] = kAnything;
  }
  void AddFormat() { work_ += kWorkOfFormat; }
  void EndParagraph() { run_ = paragraph_ = 0; }
  std::uint64_t Work() const { return work_; }

 private:
  enum class Run { kAny, kLetters, kSigns };

  // For each run the control looks at all of the paragraph before it.
  void BeginRun() {
    run_ = 0;
    work_ += paragraph_ / kUnitsOfLook;
  }

  static Run RunOf(char16_t unit) {
    if (unit == u' ') return Run::kAny;
    const char16_t lower = unit | 0x20;
    return (lower >= u'a' && lower <= u'z') || unit >= 0x80 ? Run::kLetters : Run::kSigns;
  }

  static constexpr char16_t kAnything = 0xFFFF;

  // The last letters of http, https, ftp, file, mailto, news, nntp, telnet, gopher, prospero and wais.
  bool MayEndScheme() const {
    constexpr TextView kEnds[] = {u"ttp", u"tps", u"ftp", u"ile", u"lto", u"ews",
                                  u"ntp", u"net", u"her", u"ero", u"ais"};
    return std::ranges::any_of(kEnds, [this](TextView end) {
      return std::ranges::equal(end, before_,
                                [](char16_t a, char16_t b) { return a == b || b == kAnything; });
    });
  }

  std::uint64_t work_ = 0;
  std::uint64_t run_ = 0;
  std::uint64_t paragraph_ = 0;  // its units so far
  Run kind_ = Run::kAny;
  std::array<char16_t, 3> before_{};
};

// Destinations and marks that no editor of notes shows.
constexpr std::array<std::string_view, 16> kLeftOut = {
    "pict",    "object",  "footnote", "header", "headerl", "headerr", "headerf", "footer",
    "footerl", "footerr", "footerf",  "shp",    "upr",     "xe",      "tc",      "annotation"};

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsHexDigit(char c) { return IsDigit(c) || ((c | 0x20) >= 'a' && (c | 0x20) <= 'f'); }

// No page is as wide, no letter as large; some controls look for a place to break a line for ever.
bool IsMeasureInBounds(std::string_view word, std::string_view number) {
  constexpr std::int32_t kMaxTwips = 31'680;
  constexpr std::int32_t kMaxHalfPoints = 3'276;
  constexpr std::array<std::string_view, 16> kLengths = {
      "li", "ri", "fi",    "lin",    "rin", "cufi",     "tx",     "tb",
      "sb", "sa", "cellx", "trleft", "sl",  "pnindent", "trgaph", "expndtw"};
  std::int64_t value = 0;
  const bool isHuge = std::from_chars(number.data(), number.data() + number.size(), value).ec ==
                      std::errc::result_out_of_range;
  if (word == "fs") return !isHuge && value >= -1 && value <= kMaxHalfPoints;
  // The place of a tabulator has no usual value: one control that does not know it ends when it writes.
  if (word == "tx" && number.empty()) return false;
  return std::find(kLengths.begin(), kLengths.end(), word) == kLengths.end() ||
         (!isHuge && value >= -kMaxTwips && value <= kMaxTwips);
}

// Cells beyond those that their row has announced, and rows inside cells, end some controls.
class TableCheck {
 public:
  bool Take(std::string_view word) {
    if (word == "trowd") announced_ = filled_ = 0, inRow_ = true;
    if (word == "cellx") ++announced_;
    if (word == "cell") return inRow_ && ++filled_ <= announced_;
    if (word == "row") {
      const bool whole = inRow_ && filled_ == announced_ && announced_ > 0;
      inRow_ = false;
      return whole;
    }
    return word != "nestcell" && word != "nestrow";
  }
  bool Ended() const { return !inRow_; }

 private:
  std::size_t announced_ = 0;
  std::size_t filled_ = 0;
  bool inRow_ = false;
};

class BoundsReader {
 public:
  BoundsReader(std::string_view rtf, const EditorBounds& bounds) : rest_(rtf), bounds_(bounds) {}

  TextView Read() {
    while (!rest_.empty() && trouble_.empty()) {
      const char c = rest_.front();
      rest_.remove_prefix(1);
      Take(c);
      if (work_.Work() > bounds_.work) trouble_ = kTooLong;
    }
    if (trouble_.empty() && !tables_.Ended()) trouble_ = kTables;
    return trouble_;
  }

 private:
  // Only a sign that is certain to be shown ends a run: none of a group, which may be left out, or of a byte
  // that may be the second of a letter, or stands for one.
  bool IsShownApart() const { return depth_ == 1 && !partOfLetter_ && runsEnd_; }

  void Add(char16_t unit) {
    if (!std::exchange(replaced_, false)) work_.Add(unit, IsShownApart());
    partOfLetter_ = unit >= 0x80;
  }

  void Take(char c) {
    if (c == '{') {
      if (++depth_ > bounds_.depth) trouble_ = kTooDeep;
    } else if (c == '}') {
      if (depth_ > 0) --depth_;
    } else if (c == '\\') {
      ReadControl();
    } else if (c == '\0' || c == '\r' || c == '\n') {
      // A stream of the control's own ends with a NUL.
      if (c == '\0' && rest_.find_first_not_of('\0') != std::string_view::npos) trouble_ = kNoRichText;
    } else if (static_cast<unsigned char>(c) < 0x20 && c != '\t') {
      trouble_ = kNoRichText;
    } else {
      Add(static_cast<unsigned char>(c));
    }
  }

  void AddSymbol() {
    const bool inEightBits = !rest_.empty() && rest_.front() == '\'';
    if (!rest_.empty()) rest_.remove_prefix(1);
    if (!inEightBits) return work_.Add(u' ');
    for (int digit = 0; digit < 2 && !rest_.empty() && IsHexDigit(rest_.front()); ++digit)
      rest_.remove_prefix(1);
    if (!std::exchange(replaced_, false)) work_.AddUnknown();
    partOfLetter_ = true;
  }

  void ReadControl() {
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), IsLetter);
    const std::string_view word = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    if (word.empty()) return AddSymbol();
    rest_.remove_prefix(word.size());
    const auto digits =
        std::find_if_not(rest_.begin(), rest_.end(), [](char c) { return IsDigit(c) || c == '-'; });
    const std::string_view number = rest_.substr(0, static_cast<std::size_t>(digits - rest_.begin()));
    rest_.remove_prefix(number.size());
    // Controls have a buffer for a word, and not all of them look at its end.
    if (word.size() > kLongestWord || number.size() > kLongestNumber) trouble_ = kWords;
    if (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
    constexpr std::array<std::string_view, 6> kBreaks = {"par", "line", "cell", "row", "page", "sect"};
    if (std::find(kBreaks.begin(), kBreaks.end(), word) != kBreaks.end()) work_.EndParagraph();
    if (word == "u") {
      work_.AddUnknown();
      partOfLetter_ = true;
      replaced_ = runsEnd_;
      return;
    }
    if (word == "bin" || (word == "uc" && number != "1")) runsEnd_ = false;
    work_.AddFormat();
    if (!IsMeasureInBounds(word, number)) trouble_ = kMeasures;
    const bool isOfTable = word == "trowd" || word == "cell" || word == "row" ||
                           (word == "intbl" && number != "0") || (word == "itap" && number != "0");
    if (!tables_.Take(word) || (isOfTable && !bounds_.takesTables)) trouble_ = kTables;
  }

  std::string_view rest_;
  const EditorBounds& bounds_;
  WorkCounter work_;
  TableCheck tables_;
  std::size_t depth_ = 0;
  bool partOfLetter_ = false;  // what comes next may be
  bool replaced_ = false;      // what comes next stands for a character for those who cannot read that
  bool runsEnd_ = true;        // until what follows a word cannot be told from text
  TextView trouble_;
};

bool GoesOnBehindItsEnd(std::string_view rtf) {
  std::size_t depth = 0;
  for (std::size_t at = 0; at < rtf.size(); ++at) {
    if (rtf[at] == '\\')
      ++at;
    else if (rtf[at] == '{')
      ++depth;
    else if (rtf[at] == '}' && depth > 0 && --depth == 0)
      return rtf.find_first_not_of(std::string_view("\r\n\t \0", 5), at + 1) != std::string_view::npos;
  }
  return false;
}

bool IsLineEnd(char16_t unit) { return unit == u'\r' || unit == u'\n'; }

}  // namespace

std::uint64_t TextWork(TextView text) {
  WorkCounter work;
  for (const char16_t unit : text) IsLineEnd(unit) ? work.EndParagraph() : work.Add(unit);
  return work.Work();
}

bool IsEditable(TextView text, const EditorBounds& bounds) {
  // As rich text it says a little more.
  return TextWork(text) <= bounds.work / 5 * 4 && (bounds.takesMarks || !HasMark(text));
}

TextView RtfTrouble(std::string_view rtf, const EditorBounds& bounds) {
  const TextView trouble = BoundsReader(rtf, bounds).Read();
  if (!trouble.empty() || bounds.takesMarks) return trouble;
  return RtfHasMark(rtf) ? kMarks : TextView();
}

bool HoldsMoreThanText(std::string_view rtf, const EditorBounds& bounds) {
  if (GoesOnBehindItsEnd(rtf)) return true;
  for (std::size_t at = 0; (at = rtf.find('\\', at)) != std::string_view::npos;) {
    const std::string_view rest = rtf.substr(++at);
    const auto end = std::find_if_not(rest.begin(), rest.end(), IsLetter);
    const std::string_view word = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    // What is escaped begins no word.
    at += std::max<std::size_t>(word.size(), 1);
    if (std::ranges::find(kLeftOut, word) != kLeftOut.end()) return true;
    if (word == "field" && !bounds.takesFields) return true;
    const std::string_view number = rest.substr(word.size());
    const auto digits =
        static_cast<std::size_t>(std::find_if_not(number.begin(), number.end(), IsDigit) - number.begin());
    // So many characters are no replacement of one, but words that are skipped.
    if (word == "uc" && digits > 1) return true;
    if (word == "ansicpg" &&
        !IsCodePage(ParseInt(FromAscii(number.substr(0, std::min<std::size_t>(digits, 9))))))
      return true;
  }
  return false;
}

Text BoundedWords(TextView text) {
  Text words;
  std::size_t line = 0;
  for (const char16_t unit : text.substr(0, kLongestWords)) {
    const bool pairGoesOn = unit >= 0xDC00 && unit < 0xE000;
    if (line >= kLongestLine && !IsLineEnd(unit) && !pairGoesOn) {
      words.append(u"\r\n");
      line = 0;
    }
    words.push_back(unit == 0 ? u' ' : unit);
    line = IsLineEnd(unit) ? 0 : line + 1;
  }
  return words;
}

std::string RtfOfPlainText(TextView text) {
  Text rtf = u"{\\rtf1\\ansi ";
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n') continue;
    if (text[at] == u'\\' || text[at] == u'{' || text[at] == u'}') rtf.push_back(u'\\');
    IsLineEnd(text[at]) ? rtf.append(u"\\par\r\n")
    : text[at] == u'\t' ? rtf.append(u"\\tab ")
                        : rtf.append(1, text[at]);
  }
  return RtfBytes(rtf.append(u"}"));
}

}  // namespace jotlets

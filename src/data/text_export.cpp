#include "data/text_export.h"

#include <algorithm>

#include "data/rtf_paragraphs.h"

namespace jotlets {
namespace {

using List = TextParagraph::List;

constexpr std::size_t kMaxExported = 16 * 1024 * 1024;  // code units

Text HtmlEscaped(TextView text) {
  Text escaped;
  for (const char16_t unit : text) {
    switch (unit) {
      case u'&': escaped += u"&amp;"; break;
      case u'<': escaped += u"&lt;"; break;
      case u'>': escaped += u"&gt;"; break;
      case u'"': escaped += u"&quot;"; break;
      case u'\'': escaped += u"&#39;"; break;
      case u'\r': break;
      case u'\n': escaped += u"<br>\n"; break;
      default:
        if (unit >= u' ' || unit == u'\t') escaped.push_back(unit);
    }
  }
  return escaped;
}

struct Mark {
  bool TextRun::*member;
  TextView htmlBegin;
  TextView htmlEnd;
  TextView markdown;
};
// Markdown has no mark for underlined words.
constexpr Mark kMarks[] = {{&TextRun::bold, u"<b>", u"</b>", u"**"},
                           {&TextRun::italic, u"<i>", u"</i>", u"*"},
                           {&TextRun::underline, u"<u>", u"</u>", u""},
                           {&TextRun::strikethrough, u"<s>", u"</s>", u"~~"}};

Text HtmlOf(const TextParagraph& paragraph) {
  Text html;
  for (const TextRun& run : paragraph.runs) {
    for (const Mark& mark : kMarks)
      if (run.*mark.member) html += mark.htmlBegin;
    html += HtmlEscaped(run.text);
    for (auto mark = std::rbegin(kMarks); mark != std::rend(kMarks); ++mark)
      if (run.*(mark->member)) html += mark->htmlEnd;
  }
  return html;
}

Text MarkdownEscaped(TextView text) {
  constexpr TextView kMeaningful = u"\\`*_[]<~&";
  Text escaped;
  for (const char16_t unit : text) {
    if (unit < u' ' && unit != u'\t' && unit != u'\n') continue;
    // A break within a paragraph.
    if (unit == u'\n') escaped += u"\\";
    if (kMeaningful.find(unit) != TextView::npos) escaped.push_back(u'\\');
    escaped.push_back(unit);
  }
  return escaped;
}

// Marks stand close to the words: blanks at the ends of a run are outside.
Text MarkdownOf(const TextRun& run) {
  const TextView words = TrimBlanks(run.text);
  if (words.empty()) return run.text;
  const auto before = static_cast<std::size_t>(words.data() - run.text.data());
  Text begin;
  Text end;
  for (const Mark& mark : kMarks) {
    if (!(run.*mark.member)) continue;
    begin += mark.markdown;
    end.insert(0, mark.markdown);
  }
  return run.text.substr(0, before) + begin + MarkdownEscaped(words) + end +
         run.text.substr(before + words.size());
}

// Before the first words of an item of a check list; what its box takes up of them.
TextView BoxMark(const TextParagraph& paragraph, std::size_t& length) {
  length = 0;
  if (paragraph.runs.empty()) return {};
  const TextView text = paragraph.runs.front().text;
  const bool open = text.starts_with(u"\u2610 ");
  if (!open && !text.starts_with(u"\u2611 ")) return {};
  length = 2;
  return open ? TextView(u"- [ ] ") : TextView(u"- [x] ");
}

// How far from the start of a line a sign stands that would make it a heading, an item, a quotation or a
// rule; `npos` for a plain line.
std::size_t BlockMarkIn(TextView line) {
  const std::size_t first = line.find_first_not_of(u" \t");
  if (first == TextView::npos) return first;
  const char16_t sign = line[first];
  const char16_t next = first + 1 < line.size() ? line[first + 1] : u' ';
  const bool alone = next == u' ' || next == u'\t' || next == sign;
  if (sign == u'>' || (alone && TextView(u"#+-=").find(sign) != TextView::npos)) return first;
  const std::size_t afterDigits = line.find_first_not_of(u"0123456789", first);
  if (afterDigits == first || afterDigits == TextView::npos) return TextView::npos;
  return line[afterDigits] == u'.' || line[afterDigits] == u')' ? afterDigits : TextView::npos;
}

// Lines of a paragraph from `from` on, none of them taken for more than a line.
void EscapeBlockMarks(Text& lines, std::size_t from) {
  while (from < lines.size()) {
    const std::size_t end = std::min(lines.find(u'\n', from), lines.size());
    const std::size_t mark = BlockMarkIn(TextView(lines).substr(from, end - from));
    if (mark != TextView::npos) lines.insert(from + mark, 1, u'\\');
    from = end + 1 + (mark != TextView::npos ? 1 : 0);
  }
}

Text MarkdownOf(const TextParagraph& paragraph, bool& isItem) {
  std::size_t box = 0;
  Text line(BoxMark(paragraph, box));
  if (line.empty() && paragraph.list != List::kNoList)
    line = paragraph.list == List::kBullets ? u"- " : u"1. ";
  isItem = !line.empty();
  const std::size_t words = line.size();
  for (const TextRun& run : paragraph.runs) {
    TextRun rest = run;
    if (&run == &paragraph.runs.front()) rest.text.erase(0, box);
    line += MarkdownOf(rest);
  }
  EscapeBlockMarks(line, words);
  return line;
}

bool IsReserved(TextView name) {
  const Text stem = Text(name.substr(0, name.find(u'.')));
  constexpr TextView kDevices[] = {u"con", u"prn", u"aux", u"nul"};
  if (std::ranges::any_of(kDevices, [&stem](TextView each) { return EqualIgnoreCase(stem, each); }))
    return true;
  return stem.size() == 4 && (StartsWithIgnoreCase(stem, u"com") || StartsWithIgnoreCase(stem, u"lpt")) &&
         stem.back() >= u'0' && stem.back() <= u'9';
}

}  // namespace

Text HtmlOfRtf(std::string_view rtf, TextView title) {
  Text page = u"<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>" +
              HtmlEscaped(OneLine(title)) + u"</title>\n</head>\n<body>\n";
  List open = List::kNoList;
  const auto change = [&](List list) {
    if (open == list) return;
    if (open != List::kNoList) page += open == List::kBullets ? u"</ul>\n" : u"</ol>\n";
    if (list != List::kNoList) page += list == List::kBullets ? u"<ul>\n" : u"<ol>\n";
    open = list;
  };
  for (const TextParagraph& paragraph : RtfParagraphs(rtf, kMaxExported)) {
    change(paragraph.list);
    const Text words = HtmlOf(paragraph);
    page += open == List::kNoList ? u"<p>" + (words.empty() ? Text(u"&nbsp;") : words) + u"</p>\n"
                                  : u"<li>" + words + u"</li>\n";
  }
  change(List::kNoList);
  return page + u"</body>\n</html>\n";
}

Text MarkdownOfRtf(std::string_view rtf) {
  Text text;
  bool afterItem = false;
  for (const TextParagraph& paragraph : RtfParagraphs(rtf, kMaxExported)) {
    bool isItem = false;
    const Text line = MarkdownOf(paragraph, isItem);
    // A blank line ends a paragraph; items of one list need none.
    if (!text.empty() && !(isItem && afterItem)) text += u"\n";
    if (!line.empty()) text += line + u"\n";
    afterItem = isItem;
  }
  return text;
}

Text FileNameOfTitle(TextView title) {
  constexpr std::size_t kLongestName = 80;
  constexpr TextView kForbidden = u"\\/:*?\"<>|";
  Text name;
  for (const char16_t unit : OneLine(title.substr(0, kLongestName)))
    name.push_back(unit < u' ' || kForbidden.find(unit) != TextView::npos ? u'_' : unit);
  // Half a character, and the blanks and stops that the system drops at an end.
  if (!name.empty() && name.back() >= 0xD800 && name.back() < 0xDC00) name.pop_back();
  while (!name.empty() && (name.back() == u' ' || name.back() == u'.')) name.pop_back();
  name.erase(0, std::min(name.find_first_not_of(u' '), name.size()));
  if (name.empty()) return u"note";
  return IsReserved(name) ? u"_" + name : name;
}

}  // namespace jotlets

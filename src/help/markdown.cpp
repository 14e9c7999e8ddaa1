#include "help/markdown.h"

#include <algorithm>

namespace jotlets {
namespace {

using View = std::string_view;
using LinkTo = std::function<std::string(View)>;

constexpr View kIndent = "    ";

bool IsBlank(View line) { return line.find_first_not_of(' ') == View::npos; }

View Trimmed(View text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == View::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Escaped(View text) {
  std::string out;
  for (const char sign : text) {
    switch (sign) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: out.push_back(sign);
    }
  }
  return out;
}

std::string SmallLetters(View text) {
  std::string out;
  for (const char sign : text) {
    if ((sign >= 'a' && sign <= 'z') || (sign >= '0' && sign <= '9')) out.push_back(sign);
    if (sign >= 'A' && sign <= 'Z') out.push_back(static_cast<char>(sign - 'A' + 'a'));
    if (sign == ' ' && !out.empty() && out.back() != '-') out.push_back('-');
  }
  return out;
}

std::string Inline(View text, const LinkTo& linkTo);

// What stands at the front of `text`, taken off it: code, a link or emphasis; nothing when it is none of
// them.
std::string ReadSpan(View& text, const LinkTo& linkTo) {
  const auto end = [text](View sign) { return text.find(sign, 1); };
  if (text.front() == '`' && end("`") != View::npos) {
    const View code = text.substr(1, end("`") - 1);
    text.remove_prefix(code.size() + 2);
    return "<code>" + Escaped(code) + "</code>";
  }
  if (text.front() == '*' && text.size() > 2 && text[1] != ' ' && end("*") != View::npos && end("*") > 1 &&
      text[end("*") - 1] != ' ') {
    const View words = text.substr(1, end("*") - 1);
    text.remove_prefix(words.size() + 2);
    return "<em>" + Inline(words, linkTo) + "</em>";
  }
  const std::size_t middle = text.front() == '[' ? end("](") : View::npos;
  const std::size_t close = middle == View::npos ? View::npos : text.find(')', middle);
  if (close == View::npos) return {};
  const std::string words = Inline(text.substr(1, middle - 1), linkTo);
  const std::string target = linkTo(text.substr(middle + 2, close - middle - 2));
  text.remove_prefix(close + 1);
  return target.empty() ? words : "<a href=\"" + Escaped(target) + "\">" + words + "</a>";
}

std::string Inline(View text, const LinkTo& linkTo) {
  std::string out;
  while (!text.empty()) {
    const std::size_t plain = std::min(text.find_first_of("`*["), text.size());
    out += Escaped(text.substr(0, plain));
    text.remove_prefix(plain);
    if (text.empty()) break;
    const std::string span = ReadSpan(text, linkTo);
    out += span;
    if (!span.empty()) continue;
    out.push_back(text.front());
    text.remove_prefix(1);
  }
  return out;
}

std::vector<std::string> CellsOf(View row) {
  std::vector<std::string> cells;
  std::string cell;
  row = Trimmed(row).substr(1);
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (row[i] == '\\' && i + 1 < row.size() && row[i + 1] == '|') {
      cell.push_back(row[++i]);
    } else if (row[i] == '|') {
      cells.emplace_back(Trimmed(cell));
      cell.clear();
    } else {
      cell.push_back(row[i]);
    }
  }
  return cells;
}

class ChapterWriter {
 public:
  ChapterWriter(View page, View name, const LinkTo& linkTo) : name_(name), linkTo_(linkTo) {
    while (!page.empty()) {
      const std::size_t end = std::min(page.find('\n'), page.size());
      lines_.push_back(page.substr(0, end));
      page.remove_prefix(std::min(end + 1, page.size()));
    }
  }

  HelpChapter Write() {
    Add("<section class=\"chapter\" id=\"" + std::string(name_) + "\">\n");
    while (at_ < lines_.size()) Block();
    Add(inSection_ ? "</section>\n</section>\n" : "</section>\n");
    return std::move(chapter_);
  }

 private:
  View Line() const { return at_ < lines_.size() ? lines_[at_] : View(); }
  void Add(const std::string& html) { chapter_.html += html; }
  std::string Words(View text) const { return Inline(text, linkTo_); }

  bool IsItem() const { return Line().starts_with("- "); }
  bool IsPlain() const {
    return !IsBlank(Line()) && !IsItem() && Line().find_first_of("#|") != 0 && !Line().starts_with("```");
  }

  void Block() {
    const View line = Line();
    if (IsBlank(line)) {
      ++at_;
    } else if (line.front() == '#') {
      Heading();
    } else if (line.starts_with("```")) {
      FencedCode();
    } else if (line.starts_with(kIndent)) {
      IndentedCode();
    } else if (line.front() == '|') {
      Table();
    } else if (IsItem()) {
      List();
    } else {
      Paragraph();
    }
  }

  void Heading() {
    const View line = lines_[at_++];
    const auto level = static_cast<int>(std::min(line.find_first_not_of('#'), line.size()));
    const View title = Trimmed(line.substr(static_cast<std::size_t>(level)));
    const std::string anchor =
        level == 1 ? std::string(name_) : std::string(name_) + "-" + SmallLetters(title);
    const std::string tag = "h" + std::to_string(level + 1);
    chapter_.headings.push_back({level, anchor, Words(title)});
    if (level == 2) {
      Add(std::string(inSection_ ? "</section>\n" : "") + "<section id=\"" + anchor + "\">\n");
      inSection_ = true;
    }
    Add("<" + tag + ">" + Words(title) + "</" + tag + ">\n");
  }

  void Code(const std::string& code) { Add("<pre><code>" + Escaped(code) + "</code></pre>\n"); }

  void FencedCode() {
    std::string code;
    for (++at_; at_ < lines_.size() && !Line().starts_with("```"); ++at_) code.append(Line()).append("\n");
    ++at_;
    Code(code);
  }

  void IndentedCode() {
    std::string code;
    std::string blanks;
    for (; at_ < lines_.size(); ++at_) {
      if (IsBlank(Line())) {
        blanks += "\n";
        continue;
      }
      if (!Line().starts_with(kIndent)) break;
      code.append(blanks).append(Line().substr(kIndent.size())).append("\n");
      blanks.clear();
    }
    Code(code);
  }

  void Row(View tag) {
    Add("<tr>");
    for (const std::string& cell : CellsOf(lines_[at_]))
      Add("<" + std::string(tag) + ">" + Words(cell) + "</" + std::string(tag) + ">");
    Add("</tr>\n");
    ++at_;
  }

  void Table() {
    Add("<div class=\"table\"><table>\n");
    const bool hasHead = Line().find_first_not_of("| ") != View::npos;
    if (hasHead) {
      Add("<thead>");
      Row("th");
      Add("</thead>\n");
    } else {
      ++at_;
    }
    ++at_;  // the line of dashes
    Add("<tbody>\n");
    while (Line().starts_with("|")) Row("td");
    Add("</tbody></table></div>\n");
  }

  void List() {
    Add("<ul>\n");
    while (IsItem()) {
      std::string item(lines_[at_++].substr(2));
      for (; Line().starts_with("  ") && !IsBlank(Line()); ++at_) item.append("\n").append(Trimmed(Line()));
      Add("<li>" + Words(item) + "</li>\n");
    }
    Add("</ul>\n");
  }

  void Paragraph() {
    std::string words;
    for (; IsPlain(); ++at_) words.append(words.empty() ? "" : "\n").append(Line());
    Add("<p>" + Words(words) + "</p>\n");
  }

  View name_;
  const LinkTo& linkTo_;
  std::vector<View> lines_;
  std::size_t at_ = 0;
  bool inSection_ = false;
  HelpChapter chapter_;
};

}  // namespace

HelpChapter ChapterOf(std::string_view page, std::string_view name,
                      const std::function<std::string(std::string_view)>& linkTo) {
  return ChapterWriter(page, name, linkTo).Write();
}

}  // namespace jotlets

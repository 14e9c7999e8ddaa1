#include <algorithm>
#include <utility>

#include "data/text_import.h"

namespace jotlets {
namespace {

using List = TextParagraph::List;

bool IsSpace(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n' || unit == u'\f';
}

// Elements whose content is nothing to read.
constexpr TextView kUnread[] = {u"script", u"style",  u"template", u"noscript",
                                u"svg",    u"iframe", u"object",   u"en-crypt"};

constexpr TextView kBlocks[] = {
    u"p",  u"div",   u"li",   u"tr", u"blockquote", u"section", u"article", u"header", u"pre",  u"h1",
    u"h2", u"h3",    u"h4",   u"h5", u"h6",         u"footer",  u"ul",      u"ol",     u"dl",   u"dt",
    u"dd", u"table", u"body", u"hr", u"nav",        u"main",    u"aside",   u"figure", u"form", u"en-note"};

struct Look {
  TextView tag;
  bool TextRun::*member;
};
constexpr Look kLooks[] = {{u"b", &TextRun::bold},
                           {u"strong", &TextRun::bold},
                           {u"i", &TextRun::italic},
                           {u"em", &TextRun::italic},
                           {u"u", &TextRun::underline},
                           {u"s", &TextRun::strikethrough},
                           {u"del", &TextRun::strikethrough},
                           {u"strike", &TextRun::strikethrough}};

struct Tag {
  Text name;  // in small letters
  bool closes = false;
  Text target;  // of a link
  bool ticked = false;
};

class HtmlReader {
 public:
  explicit HtmlReader(TextView page) : rest_(page) {}

  ImportedText Read() {
    while (!rest_.empty()) {
      if (rest_.front() == u'<' && ReadMarkup()) continue;
      ReadCharacter();
    }
    EndParagraph();
    text_.title = TrimBlanks(text_.title);
    return std::move(text_);
  }

 private:
  // False for a sign that only looks like the beginning of a tag.
  bool ReadMarkup() {
    if (rest_.starts_with(u"<!--")) return Skip(u"-->");
    if (rest_.starts_with(u"<![CDATA[")) return rest_.remove_prefix(9), true;
    if (rest_.starts_with(u"<!") || rest_.starts_with(u"<?")) return Skip(u">");
    const std::size_t name = rest_.starts_with(u"</") ? 2 : 1;
    if (name >= rest_.size() || !IsLetter(rest_[name])) return false;
    Act(ReadTag());
    return true;
  }
  static bool IsLetter(char16_t unit) { return (unit | 0x20) >= u'a' && (unit | 0x20) <= u'z'; }

  bool Skip(TextView end) {
    const std::size_t at = rest_.find(end);
    rest_.remove_prefix(at == TextView::npos ? rest_.size() : at + end.size());
    return true;
  }

  Tag ReadTag() {
    Tag tag;
    std::size_t at = 1;
    tag.closes = rest_[at] == u'/';
    if (tag.closes) ++at;
    while (at < rest_.size() && !IsSpace(rest_[at]) && rest_[at] != u'>' && rest_[at] != u'/')
      tag.name.push_back(LowerAscii(rest_[at++]));
    while (at < rest_.size() && rest_[at] != u'>') ReadAttribute(tag, at);
    rest_.remove_prefix(std::min(at + 1, rest_.size()));
    return tag;
  }
  static char16_t LowerAscii(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
  }

  void ReadAttribute(Tag& tag, std::size_t& at) const {
    Text name;
    while (at < rest_.size() && (IsSpace(rest_[at]) || rest_[at] == u'/')) ++at;
    while (at < rest_.size() && !IsSpace(rest_[at]) && rest_[at] != u'=' && rest_[at] != u'>' &&
           rest_[at] != u'/')
      name.push_back(LowerAscii(rest_[at++]));
    while (at < rest_.size() && IsSpace(rest_[at])) ++at;
    if (name == u"checked") tag.ticked = true;
    if (at >= rest_.size() || rest_[at] != u'=') {
      if (name.empty() && at < rest_.size() && rest_[at] != u'>') ++at;
      return;
    }
    ++at;
    while (at < rest_.size() && IsSpace(rest_[at])) ++at;
    const bool quoted = at < rest_.size() && (rest_[at] == u'"' || rest_[at] == u'\'');
    const std::size_t begin = quoted ? at + 1 : at;
    std::size_t end = quoted ? rest_.find(rest_[at], begin) : rest_.find_first_of(u" \t\r\n>", begin);
    if (end == TextView::npos) end = rest_.size();
    if (name == u"href") tag.target = Decoded(rest_.substr(begin, end - begin));
    if (name == u"checked" && rest_.substr(begin, end - begin) == u"false") tag.ticked = false;
    at = std::min(quoted ? end + 1 : end, rest_.size());
  }

  static Text Decoded(TextView text) {
    Text decoded;
    while (!text.empty()) {
      std::size_t length = 0;
      decoded += CharacterOfEntity(text, length);
      if (length == 0) decoded.push_back(text.front());
      text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return decoded;
  }

  void Act(const Tag& tag) {
    const auto is = [&tag](TextView name) { return tag.name == name; };
    if (std::ranges::any_of(kUnread, is)) return SkipElement(tag);
    if (is(u"title")) {
      inTitle_ = !tag.closes;
    } else if (is(u"head")) {
      inHead_ = !tag.closes;
    } else if (is(u"br")) {
      Add(u"\n");
    } else if (is(u"td") || is(u"th")) {
      if (!tag.closes && !now_.runs.empty()) Add(u"\t");
    } else if (is(u"a")) {
      tag.closes ? EndLink() : BeginLink(tag.target);
    } else if (is(u"input") || is(u"en-todo")) {
      if (!tag.closes) Add(tag.ticked ? u"\u2611 " : u"\u2610 ");
    } else if (std::ranges::any_of(kBlocks, is)) {
      ActOnBlock(tag);
    } else {
      for (const Look& look : kLooks)
        if (is(look.tag)) look_.*(look.member) = !tag.closes;
    }
  }

  void SkipElement(const Tag& tag) {
    if (tag.closes) return;
    const Text end = u"</" + tag.name;
    for (std::size_t at = 0; (at = rest_.find(u"</", at)) != TextView::npos; ++at) {
      if (!StartsWithIgnoreCase(rest_.substr(at, end.size()), end)) continue;
      rest_.remove_prefix(at);
      return;
    }
    rest_ = {};
  }

  void ActOnBlock(const Tag& tag) {
    const bool isList = tag.name == u"ul" || tag.name == u"ol";
    EndParagraph();
    if (tag.name == u"body") inHead_ = false;
    if (isList && !tag.closes && lists_.size() < kDeepest)
      lists_.push_back(tag.name == u"ul" ? List::kBullets : List::kNumbers);
    if (isList && tag.closes && !lists_.empty()) lists_.pop_back();
    if (tag.name == u"pre") verbatim_ = !tag.closes;
    if (tag.closes) return;
    // Also where a page has items without a list.
    if (tag.name == u"li") {
      now_.list = lists_.empty() ? List::kBullets : lists_.back();
      now_.level = static_cast<std::uint8_t>(std::max<std::size_t>(lists_.size(), 1) - 1);
    }
    if (tag.name.size() == 2 && tag.name[0] == u'h' && tag.name[1] >= u'1' && tag.name[1] <= u'6')
      now_.heading = static_cast<std::uint8_t>(tag.name[1] - u'0');
  }

  void BeginLink(const Text& target) {
    EndLink();
    target_ = target;
    linkBegin_ = now_.runs.empty() ? 0 : now_.runs.back().text.size();
    linkRun_ = now_.runs.empty() ? 0 : now_.runs.size() - 1;
  }
  void EndLink() {
    if (target_.empty()) return;
    Text words;
    for (std::size_t run = linkRun_; run < now_.runs.size(); ++run)
      words += run == linkRun_
                   ? TextView(now_.runs[run].text).substr(std::min(linkBegin_, now_.runs[run].text.size()))
                   : TextView(now_.runs[run].text);
    const Text all = LinkWords(TrimBlanks(words), target_);
    target_.clear();
    // Only what the words do not say.
    if (all.size() > words.size() && all.starts_with(TrimBlanks(words)))
      Add(TextView(all).substr(TrimBlanks(words).size()));
    else if (all != TrimBlanks(words))
      Add(u" (" + all + u")");
  }

  void ReadCharacter() {
    std::size_t length = 0;
    const Text character = CharacterOfEntity(rest_, length);
    if (length > 0) {
      AddWords(character);
      rest_.remove_prefix(length);
      return;
    }
    const char16_t unit = rest_.front();
    rest_.remove_prefix(1);
    if (verbatim_ && unit == u'\r') return;
    if (!IsSpace(unit) || verbatim_) return AddWords(TextView(&unit, 1));
    if (inTitle_) {
      if (!text_.title.ends_with(u' ')) text_.title.push_back(u' ');
      return;
    }
    if (!now_.runs.empty() && !EndsInSpace()) AddWords(u" ");
  }
  bool EndsInSpace() const { return now_.runs.back().text.empty() || IsSpace(now_.runs.back().text.back()); }

  void AddWords(TextView words) {
    if (inTitle_) text_.title += words;
    if (!inTitle_ && !inHead_ && (words.front() >= u' ' || IsSpace(words.front()))) Add(words);
  }
  void Add(TextView words) {
    if (now_.runs.empty() || !now_.runs.back().LooksAs(look_)) now_.runs.push_back(look_);
    now_.runs.back().text += words;
  }

  void EndParagraph() {
    EndLink();
    while (!now_.runs.empty()) {
      Text& last = now_.runs.back().text;
      while (!last.empty() && IsSpace(last.back())) last.pop_back();
      if (!last.empty()) break;
      now_.runs.pop_back();
    }
    if (now_.runs.empty()) return;
    text_.paragraphs.push_back(std::exchange(now_, {}));
  }

  static constexpr std::size_t kDeepest = 100;

  TextView rest_;
  ImportedText text_;
  TextParagraph now_;
  TextRun look_;
  std::vector<List> lists_;
  Text target_;
  std::size_t linkRun_ = 0;
  std::size_t linkBegin_ = 0;
  bool inTitle_ = false;
  bool inHead_ = false;
  bool verbatim_ = false;
};

}  // namespace

ImportedText TextOfHtml(TextView page) { return HtmlReader(page).Read(); }

}  // namespace jotlets

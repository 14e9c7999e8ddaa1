#include "data/rtf_paragraphs.h"

#include <algorithm>
#include <utility>

#include "data/rtf_bytes.h"
#include "data/rtf_reader.h"

namespace jotlets {
namespace {

using List = TextParagraph::List;

// Groups inside each other whose looks are remembered; deeper ones share those of the last.
constexpr std::size_t kMaxDepth = 100;

struct Effect {
  std::string_view word;
  bool TextRun::*member;
};
constexpr Effect kEffects[] = {{"b", &TextRun::bold},
                               {"i", &TextRun::italic},
                               {"ul", &TextRun::underline},
                               {"strike", &TextRun::strikethrough}};

// The words that make a paragraph one of a list. Which list a number of a table means is not looked up.
struct ListWord {
  std::string_view word;
  List list;
};
constexpr ListWord kListWords[] = {{"pnlvlblt", List::kBullets}, {"pnlvlbody", List::kNumbers},
                                   {"pndec", List::kNumbers},    {"pnlcltr", List::kNumbers},
                                   {"pnucltr", List::kNumbers},  {"ls", List::kBullets}};

class ParagraphReader final : public RtfReader {
 public:
  ParagraphReader(std::string_view rtf, std::size_t maximum) : RtfReader(rtf), left_(maximum) {}

  std::vector<TextParagraph> Paragraphs() {
    Read();
    if (!now_.runs.empty()) OnParagraphEnd();
    return std::move(paragraphs_);
  }

 private:
  bool IsFull() const override { return left_ == 0; }

  void OnText(TextView text) override {
    text = text.substr(0, left_);
    left_ -= text.size();
    if (now_.runs.empty() || !now_.runs.back().LooksAs(look_)) now_.runs.push_back(look_);
    now_.runs.back().text += text;
  }

  // An end costs as much as a character: a text of nothing but ends is bounded too.
  void OnParagraphEnd() override {
    if (left_ > 0) --left_;
    now_.list = list_;
    paragraphs_.push_back(std::exchange(now_, {}));
  }

  void OnGroupBegin() override {
    ++depth_;
    if (outer_.size() < kMaxDepth) outer_.push_back(look_);
  }

  void OnGroupEnd() override {
    if (depth_ == outer_.size()) {
      look_ = outer_.back();
      outer_.pop_back();
    }
    --depth_;
  }

  void OnWord(std::string_view word, std::int64_t number, bool given) override {
    if (const auto* row = std::ranges::find(kListWords, word, &ListWord::word); row != std::end(kListWords)) {
      list_ = row->list;
      return;
    }
    if (word == "pntext" || word == "listtext") return Skip();
    if (Skipping()) return;
    if (word == "plain") look_ = {};
    if (word == "ulnone") look_.underline = false;
    if (word == "pard") list_ = List::kNoList;
    const auto* effect = std::ranges::find(kEffects, word, &Effect::word);
    if (effect != std::end(kEffects)) look_.*(effect->member) = !given || number != 0;
  }

  std::size_t left_;
  TextRun look_;
  List list_ = List::kNoList;
  std::vector<TextRun> outer_;
  std::size_t depth_ = 0;
  TextParagraph now_;
  std::vector<TextParagraph> paragraphs_;
};

void AppendWords(Text& rtf, TextView words) {
  for (const char16_t unit : words) {
    if (unit == u'\n') {
      rtf += u"\\line ";
    } else if (unit == u'\t') {
      rtf += u"\\tab ";
    } else if (unit == u'\\' || unit == u'{' || unit == u'}') {
      rtf.push_back(u'\\');
      rtf.push_back(unit);
    } else if (unit >= u' ') {
      rtf.push_back(unit);
    }
  }
}

// As the editor writes its own lists, so that it takes them for such.
TextView ListForm(List list) {
  switch (list) {
    case List::kBullets: return u"{\\pntext\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnindent360{\\pntxtb\\'b7}}";
    case List::kNumbers:
      return u"{\\pntext "
             u"1.\\tab}{\\*\\pn\\pnlvlbody\\pnindent360\\pnstart1\\pndec{\\pntxta.}}";
    case List::kNoList: break;
  }
  return {};
}

void AppendParagraph(Text& rtf, const TextParagraph& paragraph) {
  constexpr int kHalfPoints[] = {32, 28, 24};
  constexpr int kUsual = 20;
  constexpr int kListIndent = 360;  // twips
  constexpr int kDeepestIndent = 8;
  const bool heading = paragraph.heading > 0;
  const int size =
      heading ? kHalfPoints[std::min<std::size_t>(paragraph.heading, std::size(kHalfPoints)) - 1] : kUsual;
  rtf.append(u"\\pard").append(ListForm(paragraph.list));
  if (paragraph.list != List::kNoList) {
    rtf += u"\\fi-360\\li";
    AppendInt(rtf, kListIndent * (std::min<int>(paragraph.level, kDeepestIndent) + 1));
    rtf.push_back(u' ');
  }
  rtf += u"\\plain\\fs";
  AppendInt(rtf, size);
  rtf.push_back(u' ');
  for (const TextRun& run : paragraph.runs) {
    const std::size_t begin = rtf.size();
    rtf.push_back(u'{');
    for (const Effect& effect : kEffects)
      if (run.*effect.member || (heading && effect.member == &TextRun::bold))
        rtf.append(u"\\").append(FromAscii(effect.word));
    const bool plain = rtf.size() == begin + 1;
    plain ? rtf.pop_back() : rtf.push_back(u' ');
    AppendWords(rtf, run.text);
    if (!plain) rtf.push_back(u'}');
  }
}

}  // namespace

std::string RtfOfParagraphs(const std::vector<TextParagraph>& paragraphs) {
  Text rtf = u"{\\rtf1\\ansi{\\fonttbl{\\f0 Segoe UI;}}\\uc1 ";
  for (const TextParagraph& paragraph : paragraphs) {
    if (&paragraph != &paragraphs.front()) rtf += u"\\par\n";
    AppendParagraph(rtf, paragraph);
  }
  return RtfBytes(rtf + u"}");
}

std::vector<TextParagraph> RtfParagraphs(std::string_view rtf, std::size_t maximum) {
  return ParagraphReader(rtf, maximum).Paragraphs();
}

}  // namespace jotlets

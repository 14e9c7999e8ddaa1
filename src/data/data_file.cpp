#include "data/data_file.h"

#include <algorithm>
#include <array>
#include <set>

#include "data/options_file.h"
#include "data/text_file.h"

namespace jotlets {
namespace {

constexpr TextView kContentMarker = u"<RTF>{\\rtf1";
constexpr std::size_t kMarkerTag = 5;  // of it, "<RTF>" belongs to the record line
constexpr TextView kLineBreakMark = u"^M";

// A deletion time is ten digits in front of a "|". Times before 2001, from a clock that was wrong, have
// fewer: they are told by the record that follows at once.
constexpr std::size_t kDeletedBar = 10;

bool HasDeletionTime(TextView line) {
  if (line.size() > kDeletedBar && line[kDeletedBar] == u'|') return true;
  const std::size_t bar = line.find(u'|');
  return bar != TextView::npos && bar > 0 && line.find_first_not_of(u"-0123456789") == bar &&
         line.substr(bar + 1).starts_with(u'<');
}

enum class Section { kNone, kOptions, kFriends, kJotlets, kDeleted, kStacks };

struct SectionRow {
  TextView header;
  Section section;
};

constexpr std::array kSections = {
    SectionRow{u"[Options]", Section::kOptions}, SectionRow{u"[Friends]", Section::kFriends},
    SectionRow{u"[Jotlets]", Section::kJotlets}, SectionRow{u"[Deleted jotlets]", Section::kDeleted},
    SectionRow{u"[Stacks]", Section::kStacks},
};

bool IsNumber(TextView field) {
  return !field.empty() && field.find_first_not_of(u"-0123456789") == TextView::npos;
}

// A line of [Jotlets] is a record when it is tagged, or when it begins as the colon-separated form does: with
// two numbers, a colon behind each.
bool LooksLikeRecord(TextView line) {
  if (line.front() == u'<') return true;
  const Split x = SplitAtFirst(line, u':');
  const Split y = SplitAtFirst(x.tail, u':');
  return IsNumber(x.head) && IsNumber(y.head) && y.head.size() < x.tail.size();
}

// Whether a line outside the sections of notes is one of their records: its header was lost. Records end in
// "<RTF>" or have content behind it; what a stack or a friend is made of does not.
bool IsStrayRecord(Section section, TextView line) {
  switch (section) {
    case Section::kNone:
    case Section::kOptions: return LooksLikeRecord(line) || HasDeletionTime(line);
    case Section::kFriends:
    case Section::kStacks: return line.front() == u'<' && FindIgnoreCase(line, u"<RTF>") != TextView::npos;
    case Section::kJotlets:
    case Section::kDeleted: return false;
  }
  return false;
}

class Parser {
 public:
  explicit Parser(const DataFileContext& context) : context_(context) {}

  DataFile Parse(TextView text) {
    LineReader lines(text);
    TextView line;
    while (file_.version <= kDataFileVersion && lines.Next(line)) {
      if (!line.empty()) ParseLine(line);
    }
    if (IsCutInRecord(text, line)) file_.cutRecord = line;
    file_.cut = !file_.cutRecord.empty() || IsCutBetween();
    if (ours_ && !hasJotlets_ && file_.version <= kDataFileVersion) file_.headerLost = true;
    NumberStacks();
    return std::move(file_);
  }

 private:
  // Our own files end in a whole line of their last section. What names no section of notes has lost all of
  // them.
  bool IsCutBetween() const {
    if (file_.version > kDataFileVersion) return false;
    return ours_ ? section_ != Section::kDeleted
                 : section_ == Section::kOptions || section_ == Section::kNone;
  }

  // A file made by hand may lack the last line feed, but not the end of a record.
  bool IsCutInRecord(TextView text, TextView lastLine) const {
    const bool inRecord =
        section_ == Section::kDeleted || (section_ == Section::kJotlets && lastLine.starts_with(u'<'));
    return inRecord && text.back() != u'\n' && FindIgnoreCase(lastLine, u"<RTF>") == TextView::npos;
  }

  void ParseLine(TextView line) {
    for (const SectionRow& row : kSections) {
      if (line == row.header) {
        section_ = row.section;
        hasJotlets_ |= section_ == Section::kJotlets;
        file_.recognised = true;
        return;
      }
    }
    if (IsStrayRecord(section_, line)) {
      file_.headerLost = true;
      // Read as a stack it would come up on the desktop as one, and so would the header above it.
      if (section_ == Section::kStacks && lastStack_.front() != u'<') file_.stacks.pop_back();
      if (section_ == Section::kStacks) section_ = Section::kNone;
      // A friend's line is checked by its reader.
      if (section_ != Section::kFriends) return;
    }
    switch (section_) {
      case Section::kNone: return;
      case Section::kOptions: return ParseOption(line);
      case Section::kFriends: file_.friendLines.emplace_back(line); return;
      case Section::kJotlets: return ParseJotlet(line);
      case Section::kDeleted: return ParseDeleted(line);
      case Section::kStacks:
        file_.stacks.push_back(ParseStackLine(line, 0));
        lastStack_ = line;
        return;
    }
  }

  void ParseOption(TextView line) {
    const Split split = SplitAtFirst(line, u'=');
    if (split.head.size() == line.size()) return;
    if (split.head == u"iniver") {
      file_.version = ParseInt(split.tail);
    } else if (split.head == u"ID") {
      file_.installId = split.tail;
    } else if (split.head == u"Version") {
      ours_ = split.tail == kVersionText;
    } else {
      LoadOption(context_.options, split.head, split.tail);
    }
  }

  void ParseJotlet(TextView line) {
    if (LooksLikeRecord(line)) {
      file_.jotlets.push_back(ParseEncodedJotlet(line, Blank(), context_.freshId));
    } else {
      file_.verbatim.emplace_back(line);
    }
  }

  void ParseDeleted(TextView line) {
    std::int32_t deletedTime = kNotSet;
    if (HasDeletionTime(line)) {
      const Split split = SplitAtFirst(line, u'|');
      deletedTime = ParseInt(split.head);
      line = split.tail;
    }
    file_.deleted.push_back(ParseEncodedJotlet(line, Blank(), context_.freshId));
    file_.deleted.back().record.deletedTime = deletedTime;
  }

  // Stacks without a number of their own get the lowest that no line of the file has: one that comes up
  // further down would else belong to two, and the notes that name it to the wrong one. For the same reason
  // nobody names a fresh number yet.
  void NumberStacks() {
    std::set<std::int32_t> taken;
    for (const StackRecord& stack : file_.stacks) taken.insert(stack.number);
    std::set<std::int32_t> seen;
    std::set<std::int32_t> fresh;
    std::int32_t lowestFree = 1;
    for (StackRecord& stack : file_.stacks) {
      if (stack.number >= 1 && seen.insert(stack.number).second) continue;
      while (!taken.insert(lowestFree).second) ++lowestFree;
      stack.number = lowestFree;
      fresh.insert(lowestFree);
    }
    for (auto* list : {&file_.jotlets, &file_.deleted}) {
      for (FiledJotlet& jotlet : *list) {
        if (fresh.contains(jotlet.record.stack)) jotlet.record.stack = kNone;
      }
    }
  }

  // The record that a line starts from. Only options lines change the defaults, and they come first.
  const JotletData& Blank() {
    blank_.Reset(context_.options.ForRecords(), context_.now, {});
    return blank_;
  }

  const DataFileContext& context_;
  DataFile file_;
  Section section_ = Section::kNone;
  bool ours_ = false;  // this version wrote the file
  bool hasJotlets_ = false;
  TextView lastStack_ = u"<";  // the line above, in [Stacks]
  JotletData blank_;
};

}  // namespace

DataFile ParseDataFile(TextView text, const DataFileContext& context) { return Parser(context).Parse(text); }

std::int32_t NewStackNumber(std::span<const StackRecord> stacks) {
  std::set<std::int32_t> taken;
  for (const StackRecord& stack : stacks) taken.insert(stack.number);
  std::int32_t number = 1;
  while (taken.contains(number)) ++number;
  return number;
}

void RecordLines::Append(Text& out, const JotletData& record, bool rolledHasAltPosition) {
  if (next_ == lines_.size()) lines_.emplace_back();
  Line& line = lines_[next_++];
  if (line.line.empty() || line.rolledHasAltPosition != rolledHasAltPosition || line.record != record) {
    // Apart: half a line, memory being short, would be taken for that record's at the next save.
    Text fresh;
    AppendJotletLine(fresh, record, rolledHasAltPosition);
    line.line = std::move(fresh);
    line.record = record;
    line.rolledHasAltPosition = rolledHasAltPosition;
  }
  out.append(line.line);
}

Text ComposeDataFile(const DataFileView& view) {
  Text text;
  RecordLines lines;
  AppendDataFile(text, view, lines);
  return text;
}

void AppendDataFile(Text& text, const DataFileView& view, RecordLines& lines) {
  lines.Rewind();
  // A usual line is about 300 units; growing once instead of again and again is half of the cost.
  text.reserve(256 + 320 * (view.jotlets.size() + view.deleted.size()));
  text.append(u"[Options]\niniver=");
  AppendInt(text, kDataFileVersion);
  text.append(u"\nVersion=")
      .append(kVersionText)
      .append(u"\nID=")
      .append(OneLine(view.installId))
      .append(u"\n\n");
  if (!view.stacks.empty()) {
    text.append(u"[Stacks]\n");
    for (const StackRecord& stack : view.stacks) text.append(MakeStackLine(stack)).push_back(u'\n');
    text.push_back(u'\n');
  }
  text.append(u"[Jotlets]\n");
  for (const JotletData* record : view.jotlets) {
    lines.Append(text, *record, view.rolledHasAltPosition);
    text.push_back(u'\n');
  }
  for (const Text& line : view.verbatim) text.append(line).push_back(u'\n');
  text.append(u"\n[Deleted jotlets]\n");
  for (const JotletData* record : view.deleted) {
    if (record->deletedTime != kNotSet) {
      AppendInt(text, record->deletedTime);
      text.push_back(u'|');
    }
    lines.Append(text, *record, view.rolledHasAltPosition);
    text.push_back(u'\n');
  }
}

Text MakeEncodedJotlet(const JotletData& record, bool rolledHasAltPosition, TextView content) {
  Text line = MakeJotletLine(record, rolledHasAltPosition);
  if (content.empty()) return line;
  line.append(u"<RTF>");
  // Any line break becomes one mark; the reader gives every mark back as "\r\n".
  for (std::size_t at = 0; at < content.size(); ++at) {
    const char16_t unit = content[at];
    if (unit == u'\r' && at + 1 < content.size() && content[at + 1] == u'\n') continue;
    if (unit == u'\r' || unit == u'\n') {
      line.append(kLineBreakMark);
    } else if (content.substr(at).starts_with(kLineBreakMark)) {
      // The user's own letters, as rich text also writes them.
      line.append(u"\\'5e");
    } else if (unit != u'\0') {
      line.push_back(unit);
    }
  }
  return line;
}

FiledJotlet ParseEncodedJotlet(TextView line, const JotletData& blank, const FreshId& freshId) {
  FiledJotlet jotlet;
  const std::size_t marker = line.find(kContentMarker);
  if (marker != TextView::npos) {
    const std::size_t content = marker + kMarkerTag;
    jotlet.inlineContent = ReplaceAll(line.substr(content), kLineBreakMark, u"\r\n");
    line = line.substr(0, content);
  }
  jotlet.record = ParseJotletLine(line, blank, freshId);
  return jotlet;
}

}  // namespace jotlets

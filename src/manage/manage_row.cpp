#include "manage/manage_row.h"

#include <algorithm>
#include <utility>

#include "note/frame_layout.h"

namespace jotlets {
namespace {

// Nobody reads more of a title than that, and sorting and searching go through all of them.
constexpr std::size_t kLongestTitle = 1000;
// No id of a note holds it: an id is the name of a file.
constexpr char16_t kStoredSign = u'*';

std::string Folded(TextView text) { return ToUtf8(FoldCase(text)); }

std::int32_t Known(std::int32_t time) { return time > 0 ? time : 0; }

// A separator that no typed word holds: two fields never make a word together.
std::string MoreOf(const JotletData& record) {
  return record.userString1.empty() && record.source.empty()
             ? std::string()
             : Folded(record.userString1) + '\n' + Folded(record.source);
}

// What comes after the title, when that is the first line of the text.
Text SnippetOf(TextView text, bool untitled) {
  constexpr std::size_t kLongest = 200;
  if (untitled) {
    const std::size_t begin = text.find_first_not_of(u" \t\r\n\v");
    const std::size_t end = begin == TextView::npos ? begin : text.find_first_of(u"\r\n\v", begin);
    text = end == TextView::npos ? TextView() : text.substr(end);
  }
  return ShownLine(text.substr(0, 2 * kLongest)).substr(0, kLongest);
}

}  // namespace

Text NameOfStored(std::int64_t key) { return kStoredSign + IntText(key); }

Text NameOf(const ManageRow& row) { return row.stored > 0 ? NameOfStored(row.stored) : row.id; }

std::optional<std::int64_t> StoredKeyIn(TextView name) {
  if (name.size() < 2 || name.front() != kStoredSign) return std::nullopt;
  std::int64_t key = 0;
  for (const char16_t digit : name.substr(1)) {
    if (digit < u'0' || digit > u'9' || key > INT64_MAX / 10 - 1) return std::nullopt;
    key = key * 10 + (digit - u'0');
  }
  return key;
}

bool IsSame(const ManageRow& row, const PlacedNote& note) {
  const JotletData& record = *note.record;
  return row.id == record.id && row.stored == note.stored && row.category == note.place && !row.unsaved &&
         row.modified == Known(record.modified) && row.created == Known(record.created) &&
         row.attached == record.IsAttached() &&
         row.nextWake == (record.sleep.asleep ? Known(record.sleep.nextWake) : 0) &&
         row.colour == record.colour &&
         row.type == (record.IsImage() ? ManageRow::Type::kPicture : ManageRow::Type::kText) &&
         (row.untitled ? TrimBlanks(record.title).empty()
                       : row.title == OneLine(record.title).substr(0, kLongestTitle)) &&
         row.more == MoreOf(record);
}

ManageRow RowOf(const PlacedNote& note, bool unsaved) {
  const JotletData& record = *note.record;
  ManageRow row;
  row.stored = note.stored;
  row.category = note.place;
  row.unsaved = unsaved;
  row.id = record.id;
  row.untitled = TrimBlanks(record.title).empty();
  if (!row.untitled) row.title = OneLine(record.title).substr(0, kLongestTitle);
  row.key = Folded(row.title);
  row.more = MoreOf(record);
  row.type = record.IsImage() ? ManageRow::Type::kPicture : ManageRow::Type::kText;
  row.colour = record.colour;
  row.attached = record.IsAttached();
  row.created = Known(record.created);
  row.modified = Known(record.modified);
  row.nextWake = record.sleep.asleep ? Known(record.sleep.nextWake) : 0;
  return row;
}

ManageRow RowOf(const StackRecord& stack) {
  ManageRow row;
  row.id = IntText(stack.number);
  row.title = OneLine(stack.title).substr(0, kLongestTitle);
  row.key = Folded(row.title);
  row.type = ManageRow::Type::kStack;
  return row;
}

bool ApplyText(ManageRow& row, const ManageTexts::Known& known) {
  row.known = ManageRow::Snippet::kRead;
  row.snippet = known.snippet;
  if (!row.untitled || row.title == known.beginning) return false;
  row.title = known.beginning;
  row.key = Folded(row.title);
  return true;
}

const ManageTexts::Known* ManageTexts::Find(const ManageRow& row) const {
  if (row.unsaved) return nullptr;
  const auto found = known_.find(FoldCase(row.id));
  return found == known_.end() || found->second.modified != row.modified ? nullptr : &found->second;
}

const ManageTexts::Known& ManageTexts::Read(const ManageRow& row) {
  const Text text = source_.TextOf(row);
  Known known{row.modified, Folded(text), row.untitled ? ShownTitle({}, text) : Text(),
              SnippetOf(text, row.untitled)};
  const Text id = FoldCase(row.id);
  if (const auto old = known_.find(id); old != known_.end()) {
    bytes_ -= old->second.folded.size();
    known_.erase(old);
  }
  if (row.unsaved || bytes_ + known.folded.size() > mostBytes_) return passing_ = std::move(known);
  bytes_ += known.folded.size();
  return known_[id] = std::move(known);
}

void ManageTexts::Clear() {
  known_.clear();
  bytes_ = 0;
}

}  // namespace jotlets

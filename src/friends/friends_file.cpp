#include "friends/friends_file.h"

#include <algorithm>

#include "data/text_file.h"

namespace jotlets {
namespace {

constexpr TextView kSection = u"[Friends]";
constexpr TextView kDate = u"Date=";
constexpr TextView kFavourite = u"FF";
constexpr TextView kListHead = u"Friends {";
constexpr TextView kHomeMark = u"(home)";

// Braces decide the levels and blanks are for people; a list as deep as it is long must not become a file as
// large as its square.
constexpr std::size_t kMaxIndent = 32 * 1024 * 1024;

TextView WithoutLeadingBlanks(TextView line) {
  return line.substr(std::min(line.find_first_not_of(u' '), line.size()));
}

FriendEntry GroupOfLine(TextView line) {
  const std::size_t brace = line.find(u'{');
  FriendEntry group;
  group.isGroup = true;
  TextView name = line.substr(0, brace);
  if (name.ends_with(u' ')) name.remove_suffix(1);
  group.name = name;
  group.isHome = TrimBlanks(line.substr(brace + 1)) == kHomeMark;
  return group;
}

FriendEntry FriendOfLine(TextView line) {
  const Split name = SplitAtFirst(line, u'=');
  const Split address = SplitAtFirst(name.tail, u'|');
  const Split email = SplitAtFirst(address.tail, u'|');
  TextView extra = email.tail;
  if (extra.ends_with(u'|')) extra.remove_suffix(1);
  FriendEntry entry;
  entry.name = name.head;
  entry.address = address.head;
  entry.email = email.head;
  entry.extra = extra;
  return entry;
}

}  // namespace

bool FriendReader::ParseSetting(TextView line) {
  if (line.starts_with(kDate)) {
    list_.lastUpdate = line.substr(kDate.size());
    return true;
  }
  const Split slot = SplitAtFirst(line, u':');
  const TextView digits = slot.head.substr(std::min(kFavourite.size(), slot.head.size()));
  if (!line.starts_with(kFavourite) || digits.size() != 1 || digits[0] < u'0' || digits[0] > u'9')
    return false;
  list_.favourites[static_cast<std::size_t>(digits[0] - u'0')] = slot.tail;
  return true;
}

void FriendReader::LoadFriendLine(TextView whole) {
  const TextView line = WithoutLeadingBlanks(whole);
  // Inside the list even "FFion=..." is a friend.
  if (place_ != Place::kInside && TrimBlanks(line) == kListHead) {
    place_ = Place::kInside;
    level_ = 1;
  } else if (place_ == Place::kInside) {
    ParseEntry(line);
  } else if (ParseSetting(whole)) {
    return;
  } else if (place_ == Place::kBehind && line.find_first_of(u"={}") != line.npos) {
    // A brace too many must not cost the rest of the list.
    ParseEntry(line);
  } else if (const TextView words = TrimBlanks(line); !words.empty() && words != kSection) {
    passedOver_ = true;
  }
}

void FriendReader::ParseEntry(TextView line) {
  if (line.empty()) return;
  if (line.find(u'{') == TextView::npos && line.find(u'}') != TextView::npos) return Close();
  FriendEntry entry;
  if (line.find(u'{') != TextView::npos) {
    entry = GroupOfLine(line);
    if (entry.isHome) {
      // Of several home groups the last is the one.
      if (home_ != kNoFriend) list_.entries[home_].isHome = false;
      home_ = list_.entries.size();
    }
  } else if (TrimBlanks(line) == kSeparatorName) {
    entry.name = kSeparatorName;
  } else {
    entry = FriendOfLine(line);
  }
  entry.level = level_;
  if (entry.isGroup) {
    ++level_;
    place_ = Place::kInside;
  }
  list_.entries.push_back(std::move(entry));
}

void FriendReader::Close() {
  if (level_ > 1) {
    --level_;
  } else {
    place_ = Place::kBehind;
  }
}

FriendList ParseFriends(TextView text, bool* passedOver) {
  FriendReader reader;
  LineReader lines(text);
  for (TextView line; lines.Next(line);) reader.LoadFriendLine(line);
  if (passedOver != nullptr) *passedOver = reader.PassedOver();
  return reader.List();
}

namespace {

// Line breaks would end the entry, braces open or close a group.
Text Held(TextView text) {
  Text held = OneLine(text);
  std::replace(held.begin(), held.end(), u'{', u'(');
  std::replace(held.begin(), held.end(), u'}', u')');
  return held;
}

Text HeldWithout(TextView text, char16_t separator) {
  Text held = Held(text);
  std::replace(held.begin(), held.end(), separator, u' ');
  return held;
}

class Writer {
 public:
  explicit Writer(FriendList list) : list_(std::move(list)) {
    CorrectLevels(list_);
    std::size_t indent = 0;
    for (const FriendEntry& entry : list_.entries) indent += static_cast<std::size_t>(entry.level) * 4;
    indents_ = indent <= kMaxIndent;
  }

  Text Compose() {
    text_.append(kSection).append(u"\n").append(kDate).append(OneLine(list_.lastUpdate)).append(u"\n");
    for (std::size_t slot = 0; slot < kFavouriteSlots; ++slot) {
      if (list_.favourites[slot].empty()) continue;
      text_.append(kFavourite);
      AppendInt(text_, static_cast<std::int64_t>(slot));
      text_.append(u":").append(OneLine(list_.favourites[slot])).append(u"\n");
    }
    text_.append(kListHead).append(u"\n");
    std::int32_t open = 1;
    for (const FriendEntry& entry : list_.entries) {
      CloseDownTo(open, entry.level);
      PutEntry(entry);
      open = entry.level + (entry.isGroup ? 1 : 0);
    }
    CloseDownTo(open, 1);
    text_.append(u"}\n");
    return std::move(text_);
  }

 private:
  void Indent(std::int32_t level) {
    if (indents_) text_.append(static_cast<std::size_t>(level - 1) * 2, u' ');
  }

  void CloseDownTo(std::int32_t open, std::int32_t level) {
    while (open > level) {
      Indent(--open);
      text_.append(u"}\n");
    }
  }

  void PutEntry(const FriendEntry& entry) {
    Indent(entry.level);
    if (entry.isGroup) {
      text_.append(Held(entry.name)).append(u" {");
      if (entry.isHome) text_.append(u" ").append(kHomeMark);
    } else if (entry.IsSeparator()) {
      text_.append(kSeparatorName);
    } else {
      const Text extra = Held(entry.extra);
      text_.append(HeldWithout(entry.name, u'=')).append(u"=");
      text_.append(HeldWithout(entry.address, u'|')).append(u"|");
      text_.append(HeldWithout(entry.email, u'|')).append(u"|").append(extra);
      // The reader takes one bar off the end.
      if (extra.ends_with(u'|')) text_.append(u"|");
    }
    text_.append(u"\n");
  }

  FriendList list_;
  Text text_;
  bool indents_ = true;
};

}  // namespace

Text ComposeFriends(const FriendList& list) { return Writer(list).Compose(); }

FileStatus SaveFriends(Files& files, Log& log, TextView path, const FriendList& list) {
  log.Write(kLogDetail, u"SaveFriends started for '", path, u"'");
  FileStatus written = files.Write(path, EncodeTextFile(ComposeFriends(list)));
  if (written) {
    log.Write(kLogDetail, u"SaveFriends completed OK");
  } else {
    log.Write(kLogLifecycle, u"SaveFriends failed: ", written.reason);
  }
  return written;
}

}  // namespace jotlets

#include "command/completion.h"

#include <algorithm>
#include <array>

#include "command/command_table.h"
#include "command/desktop_commands.h"
#include "command/desktop_fields.h"
#include "command/rows.h"

namespace jotlets {
namespace {

std::vector<TextView> WordsOf(TextView text) {
  std::vector<TextView> words;
  while (!(text = TrimBlanks(text)).empty()) {
    const Split split = SplitAtFirst(text, u' ');
    words.push_back(split.head);
    text = split.tail;
  }
  return words;
}

// The list that the notes of a command are in; those of the desktop for all that are not here.
struct KindRow {
  TextView name;  // the second word of the command
  TextView kind;
};
constexpr std::array kKinds = {KindRow{u"sleeping", u"sleeping"}, KindRow{u"wake", u"sleeping"},
                               KindRow{u"closed", u"closed"}, KindRow{u"attached", u"attached"},
                               KindRow{u"stack", u"stacks"}};

class Candidates {
 public:
  explicit Candidates(TextView begun) : begun_(begun) {}
  void Add(TextView word) {
    if (!StartsWithIgnoreCase(word, begun_)) return;
    if (std::find(found_.begin(), found_.end(), word) == found_.end()) found_.emplace_back(word);
  }
  template <typename Rows>
  void AddNames(const Rows& rows) {
    for (const auto& row : rows) Add(row.name);
  }
  std::vector<Text> Take() { return std::move(found_); }

 private:
  TextView begun_;
  std::vector<Text> found_;
};

// Behind the id: the actions and fields of the desktop, or what the table names.
void AddSecondArgument(Candidates& candidates, const CommandRow& row, TextView argument) {
  if (row.run == DoDesktop) return candidates.AddNames(DesktopActions());
  if (row.run == GetDesktop) return candidates.AddNames(DesktopReaders());
  if (row.run == SetDesktop) return candidates.AddNames(DesktopWriters());
  if (argument == u"field") {
    for (const TextView field : {u"position", u"encoded", u"waketime"}) {
      if (row.purpose.find(Text(u"`").append(field)) != TextView::npos) candidates.Add(field);
    }
  } else if (argument == u"encoded" || argument == u"utitle" || argument == u"address") {
    candidates.Add(argument);
  }
}

void AddArgument(Candidates& candidates, const CommandRow& row, TextView second, std::size_t at,
                 const ListOfIds& ids) {
  const std::vector<TextView> arguments = WordsOf(row.arguments);
  if (arguments.empty() || arguments.front() != u"id") return;
  if (at == 0) {
    const KindRow* kind = FindRow(kKinds, second);
    for (const Text& id : ids(kind == nullptr ? TextView(u"desktop") : kind->kind)) candidates.Add(id);
  } else if (at == 1 && arguments.size() > 1) {
    AddSecondArgument(candidates, row, arguments[1]);
  }
}

}  // namespace

std::vector<Text> CompleteCommand(std::span<const Text> words, TextView begun, const ListOfIds& ids) {
  Candidates candidates(begun);
  for (const CommandRow& row : CommandRows()) {
    const std::vector<TextView> keyword = WordsOf(row.keyword);
    const std::size_t shared = std::min(words.size(), keyword.size());
    if (!std::equal(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(shared), keyword.begin(),
                    [](const Text& a, TextView b) { return EqualIgnoreCase(a, b); }))
      continue;
    if (words.size() < keyword.size()) {
      candidates.Add(keyword[words.size()]);
    } else if (row.keyword.ends_with(u' ')) {
      AddArgument(candidates, row, keyword[1], words.size() - keyword.size(), ids);
    }
  }
  return candidates.Take();
}

}  // namespace jotlets

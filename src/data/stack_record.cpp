#include "data/stack_record.h"

#include <array>

namespace jotlets {
namespace {

using Apply = void (*)(StackRecord&, TextView);

template <auto Member>
void Number(StackRecord& stack, TextView value) {
  stack.*Member = ParseInt(value);
}

// True only for exactly 1: any other number, 2 included, is false.
template <auto Member>
void Flag(StackRecord& stack, TextView value) {
  stack.*Member = ParseInt(value) == 1;
}

struct TagRow {
  TextView tag;
  Apply apply;
};

using S = StackRecord;

constexpr std::array kTags = {
    TagRow{u"<X>", Number<&S::x>},
    TagRow{u"<Y>", Number<&S::y>},
    TagRow{u"<W>", Number<&S::width>},
    TagRow{u"<H>", Number<&S::height>},
    TagRow{u"<ID>", Number<&S::number>},
    TagRow{u"<COL>", Number<&S::colour>},
    TagRow{u"<UNP>", Flag<&S::unp>},
    TagRow{u"<ONTOP>", Flag<&S::onTop>},
    TagRow{u"<KEEPCOL>", Flag<&S::keepColour>},
    TagRow{u"<TITLE>", [](S& stack, TextView value) { stack.title = value; }},
};

void ApplyPair(StackRecord& stack, TextView pair) {
  const std::size_t close = pair.find(u'>');
  if (close == TextView::npos) return;
  const TextView tag = pair.substr(0, close + 1);
  for (const TagRow& row : kTags) {
    if (EqualIgnoreCase(row.tag, tag)) row.apply(stack, pair.substr(close + 1));
  }
}

}  // namespace

Text MakeStackLine(const StackRecord& stack) {
  Text line;
  const auto put = [&line](TextView tag, std::int32_t value) {
    line.append(tag);
    AppendInt(line, value);
  };
  put(u"<X>", stack.x);
  put(u"<Y>", stack.y);
  put(u"<W>", stack.width);
  put(u"<H>", stack.height);
  put(u"<ID>", stack.number);
  put(u"<COL>", stack.colour);
  line.append(u"<TITLE>").append(OneLine(stack.title));
  put(u"<UNP>", stack.unp ? 1 : 0);
  put(u"<ONTOP>", stack.onTop ? 1 : 0);
  put(u"<KEEPCOL>", stack.keepColour ? 1 : 0);
  return line;
}

StackRecord ParseStackLine(TextView line, std::int32_t freshNumber) {
  StackRecord stack;
  stack.number = freshNumber;
  if (line.empty() || line.front() != u'<') return stack;
  while (!line.empty()) {
    const std::size_t next = line.find(u'<', 1);
    ApplyPair(stack, line.substr(0, next));
    if (next == TextView::npos) break;
    line.remove_prefix(next);
  }
  if (stack.number < 1) stack.number = freshNumber;
  return stack;
}

}  // namespace jotlets

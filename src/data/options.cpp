#include "data/options.h"

#include <algorithm>

#include "data/text_file.h"

namespace jotlets {
namespace {

// How an option is written. A flag is written only when it differs from its default, which is how its absence
// has a meaning; every other form is always written.
struct OptionRow {
  TextView key;
  void (*read)(Options&, TextView value);
  // Appends the value; false: the line is left out.
  bool (*write)(const Options&, Text& out);
};

template <auto Member>
constexpr OptionRow NumberRow(TextView key) {
  return {key, [](Options& o, TextView value) { o.*Member = ParseInt(value); },
          [](const Options& o, Text& out) {
            AppendInt(out, o.*Member);
            return true;
          }};
}

template <auto Member>
constexpr OptionRow FlagRow(TextView key) {
  return {key, [](Options& o, TextView value) { o.*Member = ParseInt(value) == 1; },
          [](const Options& o, Text& out) {
            out.push_back(u'1');
            return o.*Member;
          }};
}

template <auto Pair, auto First, auto Second>
constexpr OptionRow PairRow(TextView key) {
  return {key,
          [](Options& o, TextView value) {
            const auto numbers = ParseIntList(value, 2);
            (o.*Pair).*First = numbers[0];
            (o.*Pair).*Second = numbers.size() > 1 ? numbers[1] : 0;
          },
          [](const Options& o, Text& out) {
            AppendInt(out, (o.*Pair).*First);
            out.push_back(u',');
            AppendInt(out, (o.*Pair).*Second);
            return true;
          }};
}

// Four modifier digits (Windows key, Shift, Ctrl, Alt), then the key code. A value too short to hold a key
// code is no hot key and changes nothing.
template <std::size_t Index>
constexpr OptionRow HookRow(TextView key) {
  return {key,
          [](Options& o, TextView value) {
            if (value.size() < 5) return;
            o.hooks[Index] = {value[0] == u'1', value[1] == u'1', value[2] == u'1', value[3] == u'1',
                              ParseInt(value.substr(4))};
          },
          [](const Options& o, Text& out) {
            const HotKey& hook = o.hooks[Index];
            for (const bool on : {hook.windowsKey, hook.shift, hook.ctrl, hook.alt}) {
              out.push_back(on ? u'1' : u'0');
            }
            AppendInt(out, hook.key);
            return true;
          }};
}

using O = Options;

constexpr std::array kOptions = {
    NumberRow<&O::debug>(u"Debug"),
    NumberRow<&O::keepDeleted>(u"KeepDeleted"),
    NumberRow<&O::makeAllVisible>(u"MakeAllVisible"),
    NumberRow<&O::useHooks>(u"UseHooks"),
    HookRow<0>(u"Hook"),
    HookRow<1>(u"Hook1"),
    HookRow<2>(u"Hook2"),
    HookRow<3>(u"Hook3"),
    HookRow<4>(u"Hook4"),
    HookRow<5>(u"Hook5"),
    NumberRow<&O::preventOverlap>(u"PreventOverlap"),
    NumberRow<&O::newJotletsAppear>(u"NewJotletsAppear"),
    PairRow<&O::newJotletsCoords, &Point::x, &Point::y>(u"NewJotletsCoords"),
    FlagRow<&O::singleClickCreates>(u"SingleClickCreates"),
    FlagRow<&O::opaqueEdit>(u"OpaqueEdit"),
    NumberRow<&O::hidden>(u"Hidden"),
    NumberRow<&O::defaultWidth>(u"DefaultWidth"),
    NumberRow<&O::defaultHeight>(u"DefaultHeight"),
    FlagRow<&O::user1>(u"User1"),
    FlagRow<&O::user2>(u"User2"),
    FlagRow<&O::user3>(u"User3"),
    FlagRow<&O::defaultImage>(u"DefaultImage"),
    PairRow<&O::imageJotletDefaultSize, &Size::width, &Size::height>(u"ImageJotletDefaultSize"),
    FlagRow<&O::rolledHasAltPosition>(u"RolledHasAltPosition"),
};

}  // namespace

void LoadOption(Options& options, TextView key, TextView value) {
  for (const OptionRow& row : kOptions) {
    if (row.key == key) {
      row.read(options, value);
      return;
    }
  }
  const auto known = std::find_if(options.others.begin(), options.others.end(),
                                  [key](const auto& other) { return other.first == key; });
  if (known != options.others.end()) {
    known->second = value;
  } else {
    options.others.emplace_back(key, value);
  }
}

void LoadOptions(Options& options, TextView text) {
  LineReader lines(text);
  for (TextView line; lines.Next(line);) {
    if (line == u"[Options]" || line.find(u'=') == TextView::npos) continue;
    const Split split = SplitAtFirst(line, u'=');
    LoadOption(options, split.head, split.tail);
  }
}

Text ComposeOptions(const Options& options) {
  Text text = u"[Options]\n";
  const auto put = [&text](TextView key, TextView value) {
    text.append(key).append(u"=").append(OneLine(value)).append(u"\n");
  };
  for (const OptionRow& row : kOptions) {
    Text value;
    if (row.write(options, value)) put(row.key, value);
  }
  for (const auto& [key, value] : options.others) put(key, value);
  return text;
}

}  // namespace jotlets

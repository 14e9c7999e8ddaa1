#include "data/options_file.h"

#include <algorithm>

#include "data/options_table.h"
#include "data/text_file.h"

namespace jotlets {
namespace {

// Text styles are numbered from 00 and follow the table, one line each.
constexpr TextView kStyleKey = u"Style";
constexpr std::size_t kMaxStyles = 100;

bool LoadStyle(Options& options, TextView key, TextView value) {
  if (key.size() != kStyleKey.size() + 2 || !key.starts_with(kStyleKey)) return false;
  const TextView digits = key.substr(kStyleKey.size());
  if (digits.find_first_not_of(u"0123456789") != TextView::npos) return false;
  const auto number = static_cast<std::size_t>(ParseInt(digits));
  if (number >= kMaxStyles) return false;
  if (options.styles.size() <= number) options.styles.resize(number + 1);
  options.styles[number] = value;
  return true;
}

Text StyleKey(std::size_t number) {
  Text key(kStyleKey);
  if (number < 10) key.push_back(u'0');
  AppendInt(key, static_cast<std::int64_t>(number));
  return key;
}

void KeepUnknown(Options& options, TextView key, TextView value) {
  const auto known = std::find_if(options.others.begin(), options.others.end(),
                                  [key](const auto& other) { return other.first == key; });
  if (known != options.others.end()) {
    known->second = value;
  } else if (options.others.size() < kMaxUnknownOptions) {
    options.others.emplace_back(key, value);
  }
}

}  // namespace

void LoadOption(Options& options, TextView key, TextView value) {
  for (const OptionRow& row : OptionRows()) {
    if (row.key != key) continue;
    row.read(options, value, row.range);
    return;
  }
  if (!LoadStyle(options, key, value)) KeepUnknown(options, key, value);
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
  for (const OptionRow& row : OptionRows()) {
    Text value;
    if (row.write(options, value)) put(row.key, value);
  }
  for (std::size_t i = 0; i < options.styles.size(); ++i) put(StyleKey(i), options.styles[i]);
  for (const auto& [key, value] : options.others) put(key, value);
  return text;
}

Text OptionsPage() {
  Text page =
      u"# Options\n\nThe settings are in \"options.ini\" of the data folder, one \"key=value\" line each, in "
      u"any order. A missing"
      u"\nline leaves its default; what is no number counts as 0; any other number out of\nrange is brought "
      u"into it.\n\n"
      u"| Key | Written as | Default | Range | |\n|---|---|---|---|---|\n";
  const Options defaults;
  for (const OptionRow& row : OptionRows()) {
    Text value;
    const bool written = row.write(defaults, value);
    page.append(u"| ").append(row.key).append(u" | ").append(row.form).append(u" | ");
    if (!written) value = value == u"1" ? u"off" : u"on";
    page.append(ReplaceAll(value, u"|", u"\\|")).append(u" | ");
    if (row.range.HasBounds()) {
      page.append(IntText(row.range.minimum)).append(u" to ").append(IntText(row.range.maximum));
    }
    page.append(u" | ").append(row.meaning).append(u" |\n");
  }
  return page.append(u"| Style00, Style01 ... | text |  |  | Saved text styles. |\n");
}

}  // namespace jotlets

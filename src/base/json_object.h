// One JSON object, put together in UTF-8. Any text can be in it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace jotlets {

class JsonObject {
 public:
  /// Names are plain ASCII.
  void Add(std::string_view name, TextView text) { AddForm(name, Quoted(text)); }
  void AddNumber(std::string_view name, std::int64_t number) { AddForm(name, std::to_string(number)); }
  void AddFlag(std::string_view name, bool flag) { AddForm(name, flag ? "true" : "false"); }
  void AddList(std::string_view name, const std::vector<Text>& texts);
  /// The whole of it, in one line.
  std::string Close() const { return out_.empty() ? "{}" : out_ + "}"; }

 private:
  void AddForm(std::string_view name, std::string_view form) {
    out_.append(out_.empty() ? "{\"" : ",\"").append(name).append("\":").append(form);
  }
  static std::string Quoted(TextView text);

  std::string out_;
};

}  // namespace jotlets

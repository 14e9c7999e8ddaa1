#include "command/reply_json.h"

#include <array>

#include "command/rows.h"

namespace jotlets {
namespace {

class JsonObject {
 public:
  void Add(std::string_view name, std::string value) {
    out_.append(out_.empty() ? "{\"" : ",\"").append(name).append("\":").append(value);
  }
  void Add(std::string_view name, TextView text) { Add(name, Quoted(text)); }
  void AddNumber(std::string_view name, TextView digits) { Add(name, std::to_string(ParseInt(digits))); }
  void AddList(std::string_view name, TextView ids) {
    std::string list = "[";
    for (Split split = SplitAtFirst(ids, u','); !ids.empty(); split = SplitAtFirst(ids, u',')) {
      list.append(list.size() > 1 ? "," : "").append(Quoted(split.head));
      ids = split.tail;
    }
    Add(name, list + "]");
  }
  std::string Close() const { return out_ + "}"; }

 private:
  static void AppendEscape(std::string& out, char16_t unit) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    out.append("\\u");
    for (int shift = 12; shift >= 0; shift -= 4) out.push_back(kDigits[(unit >> shift) & 0xF]);
  }

  // Half a character, which UTF-8 has no form for, is written as an escape; pairs stay pairs that way too.
  static std::string Quoted(TextView text) {
    std::string out = "\"";
    for (const char16_t unit : text) {
      if (unit == u'"' || unit == u'\\') {
        out.push_back('\\');
        out.push_back(static_cast<char>(unit));
      } else if (unit < 0x20 || (unit >= 0xD800 && unit <= 0xDFFF)) {
        AppendEscape(out, unit);
      } else {
        out.append(ToUtf8(TextView(&unit, 1)));
      }
    }
    return out.append("\"");
  }

  std::string out_;
};

void AddAll(JsonObject& json, TextView value, char16_t separator,
            std::initializer_list<std::string_view> names) {
  for (const std::string_view name : names) {
    const Split split = SplitAtFirst(value, separator);
    json.AddNumber(name, split.head);
    value = split.tail;
  }
}

void AsText(JsonObject& json, TextView value) { json.Add("value", value); }
void AsHex(JsonObject& json, TextView value) { json.Add("value", UnhexTitle(value)); }
void AsNumber(JsonObject& json, TextView value) { json.AddNumber("value", value); }
void AsFlag(JsonObject& json, TextView value) {
  json.Add("value", std::string(value == u"1" ? "true" : "false"));
}

struct FormRow {
  TextView name;  // of a field, or of a command that has none
  void (*add)(JsonObject& json, TextView value);
};

constexpr std::array kForms = {
    FormRow{u"utitle", AsHex},
    FormRow{u"utext", AsHex},
    FormRow{u"ontop", AsFlag},
    FormRow{u"hidden", AsFlag},
    FormRow{u"ghost", AsFlag},
    FormRow{u"rolled", AsFlag},
    FormRow{u"transparency", AsNumber},
    FormRow{u"handle", AsNumber},
    FormRow{u"colour",
            [](JsonObject& json, TextView value) {
              AddAll(json, value, u',', {"red", "green", "blue"});
            }},
    FormRow{u"position",
            [](JsonObject& json, TextView value) {
              AddAll(json, value, u',', {"x", "y"});
            }},
    FormRow{u"size",
            [](JsonObject& json, TextView value) {
              AddAll(json, value, u'x', {"width", "height"});
            }},
    FormRow{u"snap",
            [](JsonObject& json, TextView value) {
              AddAll(json, value, u',', {"on", "distance", "gap"});
            }},
    FormRow{
        u"modified",
        [](JsonObject& json, TextView value) {
          AddAll(json, value, u' ', {"time", "timeHigh", "year", "month", "day", "hour", "minute", "second"});
        }},
};

void AddValue(JsonObject& json, TextView command, TextView value) {
  if (StartsWithIgnoreCase(command, u"get list ")) return json.AddList("list", value);
  // "get desktop <id> <field>", "get snap".
  const TextView trimmed = TrimBlanks(command);
  const FormRow* form = FindRow(kForms, trimmed.substr(trimmed.rfind(u' ') + 1));
  (form == nullptr ? AsText : form->add)(json, value);
}

JsonObject Begun(TextView line) {
  JsonObject json;
  json.AddNumber("code", line.substr(0, 3));
  return json;
}

}  // namespace

std::string ReplyAsJson(TextView command, TextView reply) {
  constexpr TextView kCreated = u"OK created: ";
  JsonObject json = Begun(reply);
  const bool value = reply.starts_with(u"001");
  json.Add("ok", std::string(value || reply.starts_with(u"000") ? "true" : "false"));
  const TextView text = reply.substr(std::min<std::size_t>(4, reply.size()));
  json.Add("text", text);
  if (value) AddValue(json, command, text);
  if (text.starts_with(kCreated)) json.Add("id", SplitAtFirst(text.substr(kCreated.size()), u' ').head);
  return json.Close();
}

std::string EventAsJson(TextView line) {
  JsonObject json = Begun(line);
  TextView text = line.substr(std::min<std::size_t>(4, line.size()));
  json.Add("text", text);
  const std::int32_t code = ParseInt(line.substr(0, 3));
  constexpr TextView kCustom = u": ";
  if (code == 503) return json.Close();
  const std::size_t custom = text.find(kCustom);
  if (code == 504) {
    json.Add("word", text.substr(std::min(custom + kCustom.size(), text.size())));
    return json.Close();
  }
  const std::size_t last = text.rfind(u' ') + 1;
  const TextView id = text.substr(last);
  if (id.ends_with(u',')) {
    json.AddList("ids", id);
  } else {
    json.Add("id", id);
  }
  if (code == 505 && custom != TextView::npos && custom + kCustom.size() < last)
    json.Add("word", text.substr(custom + kCustom.size(), last - 1 - custom - kCustom.size()));
  // "created desktop jotlet <reason> <id>"
  constexpr TextView kNote = u" desktop jotlet ";
  const std::size_t reason = text.find(kNote);
  if (code >= 500 && code <= 502 && reason != TextView::npos && reason + kNote.size() < last)
    json.Add("reason", TrimBlanks(text.substr(reason + kNote.size(), last - 1 - reason - kNote.size())));
  return json.Close();
}

}  // namespace jotlets

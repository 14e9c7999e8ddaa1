#include "command/reply_json.h"

#include <array>

#include "base/json_object.h"
#include "command/rows.h"

namespace jotlets {
namespace {

void AddDigits(JsonObject& json, std::string_view name, TextView digits) {
  json.AddNumber(name, ParseInt(digits));
}

void AddIds(JsonObject& json, std::string_view name, TextView ids) {
  std::vector<Text> list;
  for (Split split = SplitAtFirst(ids, u','); !ids.empty(); split = SplitAtFirst(ids, u',')) {
    list.emplace_back(split.head);
    ids = split.tail;
  }
  json.AddList(name, list);
}

void AddAll(JsonObject& json, TextView value, char16_t separator,
            std::initializer_list<std::string_view> names) {
  for (const std::string_view name : names) {
    const Split split = SplitAtFirst(value, separator);
    AddDigits(json, name, split.head);
    value = split.tail;
  }
}

void AsText(JsonObject& json, TextView value) { json.Add("value", value); }
void AsHex(JsonObject& json, TextView value) { json.Add("value", UnhexTitle(value)); }
void AsNumber(JsonObject& json, TextView value) { AddDigits(json, "value", value); }
void AsFlag(JsonObject& json, TextView value) { json.AddFlag("value", value == u"1"); }

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
  if (StartsWithIgnoreCase(command, u"get list ")) return AddIds(json, "list", value);
  // "get desktop <id> <field>", "get snap".
  const TextView trimmed = TrimBlanks(command);
  const FormRow* form = FindRow(kForms, trimmed.substr(trimmed.rfind(u' ') + 1));
  (form == nullptr ? AsText : form->add)(json, value);
}

JsonObject Begun(TextView line) {
  JsonObject json;
  AddDigits(json, "code", line.substr(0, 3));
  return json;
}

}  // namespace

std::string ReplyAsJson(TextView command, TextView reply) {
  constexpr TextView kCreated = u"OK created: ";
  JsonObject json = Begun(reply);
  const bool value = reply.starts_with(u"001");
  json.AddFlag("ok", value || reply.starts_with(u"000"));
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
    AddIds(json, "ids", id);
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

#include "data/policy.h"

#include <array>
#include <limits>

namespace jotlets {
namespace {

using Value = PolicySource::Value;

void LogLine(Log& log, TextView front, TextView value) { log.Write(kLogLifecycle, front, value); }

// Takes one value of the right type; what it says to the log is part of it.
struct PolicyRow {
  TextView name;
  Value::Type type;
  void (*take)(Policy&, const Value&, Log&);
};

template <auto Member>
void ApplyYesNo(Policy& policy, const Value& value, Log& log, TextView front) {
  policy.*Member = value.number == 1;
  if (!front.empty()) LogLine(log, front, value.number == 1 ? u"yes" : u"no");
}

template <auto Member>
void ApplyNumber(Policy& policy, const Value& value, Log& log, TextView front) {
  constexpr std::uint32_t kMax = std::numeric_limits<std::int32_t>::max();
  policy.*Member = static_cast<std::int32_t>(value.number > kMax ? kMax : value.number);
  LogLine(log, front, IntText(value.number));
}

void ApplyPort(Policy& policy, const Value& value, Log& log) {
  constexpr std::uint32_t kLastPort = 65535;
  if (value.number < 1 || value.number > kLastPort) {
    log.Write(kLogLifecycle, u"GPO ignored, no port: ", value.number);
  } else {
    ApplyNumber<&Policy::port>(policy, value, log, u"GPO port ");
  }
}

template <auto Member>
void ApplyText(Policy& policy, const Value& value, Log& log, TextView front) {
  policy.*Member = value.text;
  if (!front.empty()) LogLine(log, front, value.text);
}

using P = Policy;
constexpr auto kNumber = Value::Type::kNumber;
constexpr auto kText = Value::Type::kText;

constexpr std::array kRows = {
    PolicyRow{u"SyncWithServer", kNumber,
              [](P& p, const Value& v, Log& log) { ApplyYesNo<&P::syncWithServer>(p, v, log, {}); }},
    PolicyRow{
        u"ServerName", kText,
        [](P& p, const Value& v, Log& log) { ApplyText<&P::serverName>(p, v, log, u"GPO server ip: "); }},
    PolicyRow{u"UseDNS", kNumber,
              [](P& p, const Value& v, Log& log) { ApplyYesNo<&P::useDns>(p, v, log, u"GPO usedns:"); }},
    PolicyRow{
        u"UseNetworking", kNumber,
        [](P& p, const Value& v, Log& log) { ApplyYesNo<&P::useNetworking>(p, v, log, u"GPO network:"); }},
    PolicyRow{u"Port", kNumber, [](P& p, const Value& v, Log& log) { ApplyPort(p, v, log); }},
    PolicyRow{u"LogAllNetworking", kNumber,
              [](P& p, const Value& v, Log& log) {
                ApplyYesNo<&P::logAllNetworking>(p, v, log, u"GPO logalltoserver: ");
              }},
    PolicyRow{u"SkinFile", kText,
              [](P& p, const Value& v, Log& log) { ApplyText<&P::skinFile>(p, v, log, {}); }},
    PolicyRow{u"UseEmail", kNumber,
              [](P& p, const Value& v, Log& log) { ApplyNumber<&P::useEmail>(p, v, log, u"GPO useemail"); }},
    PolicyRow{u"SMTPServerName", kText,
              [](P& p, const Value& v, Log& log) {
                ApplyText<&P::smtpServerName>(p, v, log, u"GPO smtp server:");
              }},
};

constexpr auto kNames = [] {
  std::array<TextView, kRows.size()> names;
  for (std::size_t i = 0; i < kRows.size(); ++i) names[i] = kRows[i].name;
  return names;
}();

}  // namespace

Policy ReadPolicy(const PolicySource& source, Log& log) {
  Policy policy;
  for (const PolicyRow& row : kRows) {
    const Value value = source.Read(row.name);
    if (value.type == Value::Type::kMissing) continue;
    if (value.type == row.type) {
      row.take(policy, value, log);
    } else {
      LogLine(log, u"GPO ignored, a value of the wrong type: ", row.name);
    }
  }
  return policy;
}

std::span<const TextView> PolicyValueNames() { return kNames; }

Options WithPolicy(Options options, const Policy& policy) {
  if (policy.serverName) options.serverIp = *policy.serverName;
  if (policy.useDns) options.useDns = *policy.useDns;
  if (policy.useNetworking) options.networking = *policy.useNetworking;
  if (policy.port) options.netPort = *policy.port;
  if (policy.skinFile) options.skin = *policy.skinFile;
  if (policy.useEmail) options.useEmail = *policy.useEmail;
  if (policy.smtpServerName) options.smtpServer = *policy.smtpServerName;
  return options;
}

}  // namespace jotlets

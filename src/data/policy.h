// What an administrator has fixed for all users: values of the machine's policy key that win over the
// options.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "base/log.h"
#include "base/text.h"
#include "data/options.h"

namespace jotlets {

/// The policy key as rules see it.
class PolicySource {
 public:
  struct Value {
    enum class Type { kMissing, kNumber, kText, kOther };
    Type type = Type::kMissing;
    std::uint32_t number = 0;
    Text text;
  };
  virtual ~PolicySource() = default;
  virtual Value Read(TextView name) const = 0;
};

/// What the policy fixes; what is not there is the user's to choose.
struct Policy {
  std::optional<bool> syncWithServer;
  std::optional<Text> serverName;  // name, a comma and the port
  std::optional<bool> useDns;
  std::optional<bool> useNetworking;
  std::optional<std::int32_t> port;
  std::optional<bool> logAllNetworking;
  std::optional<Text> skinFile;
  std::optional<std::int32_t> useEmail;
  std::optional<Text> smtpServerName;
};

/// Reads every value, with its log line. A value of another type than its own is logged and ignored. Numbers
/// that stand for yes and no mean yes exactly when they are 1.
Policy ReadPolicy(const PolicySource& source, Log& log);

/// The names of the values, in the order of their reading.
std::span<const TextView> PolicyValueNames();

/// The options that hold: the user's, with what the policy fixes in their place. The user's own are kept
/// apart, so that they are as they were when the policy is lifted.
Options WithPolicy(Options options, const Policy& policy);

}  // namespace jotlets

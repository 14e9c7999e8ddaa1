#include "app/win/registry_policy.h"

#include <windows.h>

#include <algorithm>

#include "base/win/wide.h"

namespace jotlets {
namespace {

constexpr wchar_t kPolicyKey[] = L"Software\\Policies\\Brask\\Jotlets";
constexpr DWORD kMaximumBytes = 64 * 1024;

}  // namespace

PolicySource::Value RegistryPolicy::Read(TextView name) const {
  Value value;
  const Text valueName(name);
  DWORD type = 0;
  DWORD bytes = 0;
  if (RegGetValueW(HKEY_LOCAL_MACHINE, kPolicyKey, Wide(valueName), RRF_RT_ANY, &type, nullptr, &bytes) !=
      0) {
    return value;
  }
  value.type = Value::Type::kOther;
  if (type == REG_DWORD) {
    DWORD number = 0;
    bytes = sizeof number;
    if (RegGetValueW(HKEY_LOCAL_MACHINE, kPolicyKey, Wide(valueName), RRF_RT_REG_DWORD, nullptr, &number,
                     &bytes) == 0) {
      value.type = Value::Type::kNumber;
      value.number = number;
    }
  } else if (type == REG_SZ && bytes <= kMaximumBytes) {
    Text text(bytes / sizeof(wchar_t) + 1, u'\0');
    bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegGetValueW(HKEY_LOCAL_MACHINE, kPolicyKey, Wide(valueName), RRF_RT_REG_SZ, nullptr, text.data(),
                     &bytes) == 0) {
      text.resize(std::min(text.find(u'\0'), text.size()));
      value.type = Value::Type::kText;
      value.text = std::move(text);
    }
  }
  return value;
}

}  // namespace jotlets

// The machine's policy key, "Software\Policies\Brask\Jotlets".
#pragma once

#include "data/policy.h"

namespace jotlets {

class RegistryPolicy final : public PolicySource {
 public:
  Value Read(TextView name) const override;
};

}  // namespace jotlets

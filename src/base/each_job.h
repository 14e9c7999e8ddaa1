// The same done with each of many, as a job.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

#include "base/job.h"
#include "base/text.h"

namespace jotlets {

/// A job that is given up leaves the rest as it is.
class EachJob final : public Job {
 public:
  /// `act` gets the next of `names`, at most `together` of them, and says how many of these it could not
  /// serve.
  EachJob(std::vector<Text> names, std::size_t together,
          std::function<std::size_t(const std::vector<Text>& names)> act)
      : names_(std::move(names)), together_(together), act_(std::move(act)) {}

  /// All that go together, whoever asks for fewer.
  State Step(std::size_t) override {
    if (names_.empty()) return State::kDone;
    const auto from = names_.begin() + static_cast<std::ptrdiff_t>(next_);
    next_ = std::min(names_.size(), next_ + together_);
    failed_ += act_({from, names_.begin() + static_cast<std::ptrdiff_t>(next_)});
    return next_ < names_.size() ? State::kRunning : State::kDone;
  }
  const Text& Reason() const override { return reason_; }
  int Percent() const override { return PercentOf(next_, names_.size()); }

  /// How many could not be served.
  std::size_t Failed() const { return failed_; }

 private:
  const std::vector<Text> names_;
  const std::size_t together_;
  const std::function<std::size_t(const std::vector<Text>& names)> act_;
  const Text reason_;
  std::size_t next_ = 0;
  std::size_t failed_ = 0;
};

}  // namespace jotlets

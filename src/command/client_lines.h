// The way to other programs' windows: lines in order, and a bounded wait for those who are slow to take them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <vector>

#include "base/log.h"
#include "base/text.h"

namespace jotlets {

/// A client's window, 0 when it gave none.
using ClientWindow = std::uintptr_t;

/// `kHung`: the line was handed over, and nobody has answered in time.
enum class Delivery { kDelivered, kHung, kGone };

/// Carries one line of text to a client's window and waits until the client has taken it, but not for ever.
class LineTransport {
 public:
  virtual ~LineTransport() = default;
  virtual Delivery Send(ClientWindow client, std::uintptr_t tag, TextView line,
                        std::uint32_t milliseconds) = 0;
  virtual bool Exists(ClientWindow client) const = 0;
  /// Has `ClientLines::OnAnswers` called, not from inside this call, once the client has looked at its
  /// messages; false when it is gone.
  virtual bool AskForAnswer(ClientWindow client) = 0;
  /// The time, from any beginning.
  virtual std::uint64_t Milliseconds() const = 0;
};

/// How long something waits for all the clients that it concerns together.
class WaitBudget {
 public:
  static constexpr std::uint32_t kMilliseconds = 2000;
  static constexpr std::uint32_t kMoment = 50;
  explicit WaitBudget(const LineTransport& transport)
      : transport_(transport), end_(transport.Milliseconds() + kMilliseconds) {}
  /// What is left for the next of `clients`, all of whom are to have a moment to answer in.
  std::uint32_t ForOneOf(std::size_t clients) const {
    const std::uint64_t now = transport_.Milliseconds();
    const std::uint64_t rest = now >= end_ ? 0 : end_ - now;
    const std::uint64_t kept = std::min<std::uint64_t>(rest / 2, (clients - 1) * std::uint64_t{kMoment});
    return static_cast<std::uint32_t>(rest - kept);
  }

 private:
  const LineTransport& transport_;
  std::uint64_t end_;
};

/// A client that does not answer in time is waited for no more: what it is sent from then on is kept, and
/// handed over in order when it looks at its messages again.
class ClientLines {
 public:
  /// What is kept for one client; the lines that exceed it are left out, which is logged.
  static constexpr std::size_t kMaxLines = 1000;
  static constexpr std::size_t kMaxUnits = 16 * 1024 * 1024;

  ClientLines(LineTransport& transport, Log& log) : transport_(transport), log_(log) {}

  /// Sends a line and waits so long for the client, or keeps it. False when the client is gone.
  bool Send(ClientWindow client, std::uintptr_t tag, TextView line, std::uint32_t milliseconds);
  /// A client looks at its messages again.
  void OnAnswers(ClientWindow client);

  LineTransport& Transport() const { return transport_; }

 private:
  struct Line {
    std::uintptr_t tag;
    Text text;
  };
  struct Waiting {
    ClientWindow client;
    std::deque<Line> lines;
    std::size_t units = 0;
    std::size_t leftOut = 0;
  };
  Waiting* Find(ClientWindow client);
  void Keep(Waiting& waiting, std::uintptr_t tag, TextView line);
  void WaitFor(ClientWindow client);
  void Forget(ClientWindow client);
  Delivery Carry(ClientWindow client, const Line& line, std::uint32_t milliseconds);

  LineTransport& transport_;
  Log& log_;
  std::vector<Waiting> waiting_;  // for those who hang
};

}  // namespace jotlets

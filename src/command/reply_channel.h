// The way out: replies to the sender of a command, and event lines to every program that has registered.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/log.h"
#include "base/text.h"
#include "desk/note_event.h"

namespace jotlets {

/// A client's window, 0 when it gave none.
using ClientWindow = std::uintptr_t;

enum class Delivery { kDelivered, kHung, kGone };

/// Carries one line of text to a client's window and waits until the client has taken it, but not for ever.
class LineTransport {
 public:
  virtual ~LineTransport() = default;
  virtual Delivery Send(ClientWindow client, std::uintptr_t tag, TextView line) = 0;
  virtual bool Exists(ClientWindow client) const = 0;
};

/// The programs that get event lines, in the order in which they registered, each once.
///
/// A client whose window is gone is dropped at the next event. One that hangs holds us up once for the bound
/// of the transport and is then passed over: `kHungLimit` hung deliveries in a row drop it, so that a dead
/// program cannot slow every later event down.
class Listeners final : public EventSink {
 public:
  static constexpr int kHungLimit = 2;
  Listeners(LineTransport& transport, Log& log) : transport_(transport), log_(log) {}

  bool Register(ClientWindow client);    // false: it was there already
  bool Deregister(ClientWindow client);  // false: it was not there
  bool IsRegistered(ClientWindow client) const;

  /// Sends an event to all of them, in the order in which they came.
  void Send(const NoteEvent& event) override { NotifyListeners(EventLine(event)); }
  void NotifyListeners(TextView line);

 private:
  struct Listener {
    ClientWindow client;
    int hungInARow;
  };
  Listener* Find(ClientWindow client);

  LineTransport& transport_;
  Log& log_;
  std::vector<Listener> listeners_;
};

/// Made for one command: sends its reply to its sender, with the tag that came with the command.
class ApiReplyChannel {
 public:
  ApiReplyChannel(LineTransport& transport, Listeners& listeners, Log& log, std::uintptr_t tag,
                  ClientWindow client)
      : transport_(transport), listeners_(listeners), log_(log), tag_(tag), client_(client) {}

  void SendLine(TextView line) const;
  void Ok(TextView word) const;      // "000 OK " and the word
  void Value(TextView value) const;  // "001 " and the value

  bool Register() const { return listeners_.Register(client_); }
  bool Deregister() const { return listeners_.Deregister(client_); }
  bool IsRegistered() const { return listeners_.IsRegistered(client_); }

 private:
  LineTransport& transport_;
  Listeners& listeners_;
  Log& log_;
  std::uintptr_t tag_;
  ClientWindow client_;
};

}  // namespace jotlets

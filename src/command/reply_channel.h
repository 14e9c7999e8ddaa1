// The way out: replies to the sender of a command, and event lines to every program that has registered.
#pragma once

#include <cstdint>
#include <vector>

#include "base/text.h"
#include "command/client_lines.h"
#include "desk/note_event.h"

namespace jotlets {

/// The programs that get event lines, in the order in which they registered, each once.
///
/// An event waits for all of them together as long as a `WaitBudget` lasts; who hangs is passed over and gets
/// the rest when it answers again. A listener leaves by deregistering, or when its window is found gone.
class Listeners final : public EventSink {
 public:
  explicit Listeners(ClientLines& lines) : lines_(lines) {}

  bool Register(ClientWindow client);    // false: it was there already
  bool Deregister(ClientWindow client);  // false: it was not there
  bool IsRegistered(ClientWindow client) const;

  /// Sends an event to all of them, in the order in which they came.
  void Send(const NoteEvent& event) override { NotifyListeners(EventLine(event)); }
  void NotifyListeners(TextView line);

 private:
  ClientLines& lines_;
  std::vector<ClientWindow> listeners_;
};

/// Made for one command: sends its reply to its sender, with the tag that came with the command.
class ApiReplyChannel {
 public:
  ApiReplyChannel(ClientLines& lines, Listeners& listeners, std::uintptr_t tag, ClientWindow client)
      : lines_(lines), listeners_(listeners), tag_(tag), client_(client) {}

  void SendLine(TextView line) const;
  bool HasReplied() const { return replied_; }
  void Ok(TextView word) const;      // "000 OK " and the word
  void Value(TextView value) const;  // "001 " and the value

  bool Register() const { return listeners_.Register(client_); }
  bool Deregister() const { return listeners_.Deregister(client_); }
  bool IsRegistered() const { return listeners_.IsRegistered(client_); }

 private:
  ClientLines& lines_;
  Listeners& listeners_;
  std::uintptr_t tag_;
  ClientWindow client_;
  mutable bool replied_ = false;
};

}  // namespace jotlets

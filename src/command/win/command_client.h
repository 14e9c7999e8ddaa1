// The other side of the command interface: a program that sends commands and takes replies and events.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "base/win/ansi_code_page.h"
#include "ui/window.h"

namespace jotlets {

class CommandClient final : public Window {
 public:
  enum class Outcome { kReplied, kNotRunning, kNotTaken, kNoReply, kNotCarried };
  struct Result {
    Outcome outcome = Outcome::kNotRunning;
    Text reply;
  };

  /// Creates the hidden window that replies and events come to; false when the system could not.
  bool Open();

  /// Whether the program runs.
  static bool IsServerThere();

  /// Sends one command ("do ping", without a prefix) and waits for its reply. `kNotRunning`: no program runs.
  /// `kNotTaken`: it runs but did not take the command, as while it is loading. `kNotCarried`: the code page
  /// of the interface lacks a character of the command.
  Result Send(TextView command);

  /// Sends bytes as they are, and waits until they are taken; for payloads that are no commands.
  bool SendBytes(const void* bytes, DWORD count, bool withSender, ULONG_PTR tag = 0);

  /// What to do with event lines, which may come at any time the thread looks at its messages.
  void OnEvent(std::function<void(TextView line)> handler) { onEvent_ = std::move(handler); }

  /// The reply that came last, and its tag.
  const std::optional<Text>& LastReply() const { return reply_; }
  ULONG_PTR LastTag() const { return replyTag_; }

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Take(const COPYDATASTRUCT& record);

  AnsiCodePage ansi_;
  std::function<void(TextView)> onEvent_;
  std::optional<Text> reply_;
  ULONG_PTR replyTag_ = 0;
};

}  // namespace jotlets

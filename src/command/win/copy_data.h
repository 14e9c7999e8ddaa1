// The transport of the command interface: lines of 8-bit text in copy-data messages.
#pragma once

#include <windows.h>

#include "base/code_page.h"
#include "command/client_lines.h"

namespace jotlets {

/// The text of a copy-data record: its first `cbData` characters, ended by the first NUL among them.
Text TextOfCopyData(const COPYDATASTRUCT& record, const CodePage& ansi);

/// Sends lines as copy-data in the name of a window, and waits for the client for a bounded time. Messages
/// that other programs send us meanwhile are served, so that a client may send a command from inside an
/// event. A line that the client is slow to take stays among its messages.
class CopyDataTransport final : public LineTransport {
 public:
  explicit CopyDataTransport(const CodePage& ansi) : ansi_(ansi) {}
  /// `answers` is posted to the sender, with the client as its detail, when one that was asked for has
  /// answered.
  void SetSender(HWND sender, UINT answers);

  Delivery Send(ClientWindow client, std::uintptr_t tag, TextView line, std::uint32_t milliseconds) override;
  bool Exists(ClientWindow client) const override;
  bool AskForAnswer(ClientWindow client) override;
  std::uint64_t Milliseconds() const override { return GetTickCount64(); }

 private:
  const CodePage& ansi_;
  HWND sender_ = nullptr;
  UINT answers_ = 0;
};

}  // namespace jotlets

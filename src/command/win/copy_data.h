// The transport of the command interface: lines of 8-bit text in copy-data messages.
#pragma once

#include <windows.h>

#include "base/code_page.h"
#include "command/reply_channel.h"

namespace jotlets {

/// The text of a copy-data record: its first `cbData` characters, ended by the first NUL among them.
Text TextOfCopyData(const COPYDATASTRUCT& record, const CodePage& ansi);

/// Sends lines as copy-data in the name of a window, and waits for the client for a bounded time. Messages
/// that other programs send us meanwhile are served, so that a client may send a command from inside an
/// event.
class CopyDataTransport final : public LineTransport {
 public:
  static constexpr UINT kMaxMilliseconds = 2000;

  explicit CopyDataTransport(const CodePage& ansi) : ansi_(ansi) {}
  void SetSender(HWND sender) { sender_ = sender; }

  Delivery Send(ClientWindow client, std::uintptr_t tag, TextView line) override;
  bool Exists(ClientWindow client) const override;

 private:
  const CodePage& ansi_;
  HWND sender_ = nullptr;
};

}  // namespace jotlets

#include "command/win/copy_data.h"

#include <cstring>
#include <memory>

namespace jotlets {
namespace {

HWND WindowOf(ClientWindow client) { return reinterpret_cast<HWND>(client); }

}  // namespace

Text TextOfCopyData(const COPYDATASTRUCT& record, const CodePage& ansi) {
  if (record.lpData == nullptr || record.cbData == 0) return {};
  const auto* begin = static_cast<const char*>(record.lpData);
  const auto* nul = static_cast<const char*>(std::memchr(begin, 0, record.cbData));
  return ansi.Decode({begin, nul == nullptr ? record.cbData : static_cast<std::size_t>(nul - begin)});
}

void CopyDataTransport::SetSender(HWND sender, UINT answers) {
  sender_ = sender;
  answers_ = answers;
}

Delivery CopyDataTransport::Send(ClientWindow client, std::uintptr_t tag, TextView line,
                                 std::uint32_t milliseconds) {
  std::string bytes = ansi_.Encode(line);
  COPYDATASTRUCT record{tag, static_cast<DWORD>(bytes.size()), bytes.data()};
  DWORD_PTR answer = 0;
  // Not the mode that leaves a window alone which has not looked at its messages for long: the line would be
  // lost.
  const LRESULT sent =
      SendMessageTimeoutW(WindowOf(client), WM_COPYDATA, reinterpret_cast<WPARAM>(sender_),
                          reinterpret_cast<LPARAM>(&record), SMTO_NORMAL, milliseconds, &answer);
  if (sent != 0) return Delivery::kDelivered;
  return Exists(client) ? Delivery::kHung : Delivery::kGone;
}

bool CopyDataTransport::AskForAnswer(ClientWindow client) {
  // The answer arrives inside any wait of ours; what follows from it has to wait for the message loop.
  struct Asked {
    HWND sender;
    UINT message;
  };
  auto* asked = new Asked{sender_, answers_};
  const auto answered = [](HWND window, UINT, ULONG_PTR detail, LRESULT) noexcept {
    const std::unique_ptr<Asked> to(reinterpret_cast<Asked*>(detail));
    PostMessageW(to->sender, to->message, 0, reinterpret_cast<LPARAM>(window));
  };
  if (SendMessageCallbackW(WindowOf(client), WM_NULL, 0, 0, static_cast<SENDASYNCPROC>(answered),
                           reinterpret_cast<ULONG_PTR>(asked)) != 0)
    return true;
  delete asked;
  return false;
}

bool CopyDataTransport::Exists(ClientWindow client) const {
  // A sender that names the broadcast handle would have every window of the desktop get its reply.
  return WindowOf(client) != HWND_BROADCAST && IsWindow(WindowOf(client)) != 0;
}

}  // namespace jotlets

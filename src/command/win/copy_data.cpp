#include "command/win/copy_data.h"

#include <cstring>

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

Delivery CopyDataTransport::Send(ClientWindow client, std::uintptr_t tag, TextView line) {
  std::string bytes = ansi_.Encode(line);
  COPYDATASTRUCT record{tag, static_cast<DWORD>(bytes.size()), bytes.data()};
  DWORD_PTR answer = 0;
  const LRESULT sent =
      SendMessageTimeoutW(WindowOf(client), WM_COPYDATA, reinterpret_cast<WPARAM>(sender_),
                          reinterpret_cast<LPARAM>(&record), SMTO_ABORTIFHUNG, kMaxMilliseconds, &answer);
  if (sent != 0) return Delivery::kDelivered;
  return Exists(client) ? Delivery::kHung : Delivery::kGone;
}

bool CopyDataTransport::Exists(ClientWindow client) const {
  // A sender that names the broadcast handle would have every window of the desktop get its reply.
  return WindowOf(client) != HWND_BROADCAST && IsWindow(WindowOf(client)) != 0;
}

}  // namespace jotlets

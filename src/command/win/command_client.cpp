#include "command/win/command_client.h"

#include "base/win/wide.h"
#include "command/win/copy_data.h"

namespace jotlets {
namespace {

constexpr wchar_t kClientClass[] = L"BraskJotletsClient";
constexpr wchar_t kServerClass[] = L"BraskSoftwareJotletsMain";
// A command may save thousands of notes before it replies.
constexpr UINT kMaxMilliseconds = 60000;

// Event lines have codes from 500 to 599, replies have all others.
bool IsEvent(TextView line) { return line.size() >= 3 && line[0] == u'5'; }

}  // namespace

bool CommandClient::Open() { return RegisterWindowClass(kClientClass) && Create(kClientClass, L"", {}, {}); }

bool CommandClient::IsServerThere() { return FindWindowW(kServerClass, nullptr) != nullptr; }

bool CommandClient::SendBytes(const void* bytes, DWORD count, bool withSender, ULONG_PTR tag) {
  const HWND server = FindWindowW(kServerClass, nullptr);
  if (server == nullptr) return false;
  COPYDATASTRUCT record{tag, count, const_cast<void*>(bytes)};
  DWORD_PTR taken = 0;
  const WPARAM sender = withSender ? reinterpret_cast<WPARAM>(Handle()) : 0;
  return SendMessageTimeoutW(server, WM_COPYDATA, sender, reinterpret_cast<LPARAM>(&record), SMTO_NORMAL,
                             kMaxMilliseconds, &taken) != 0 &&
         taken != 0;
}

CommandClient::Result CommandClient::Send(TextView command) {
  if (!ansi_.Carries(command)) return {Outcome::kNotCarried, {}};
  const std::string bytes = "api " + ansi_.Encode(command);
  reply_.reset();
  if (!SendBytes(bytes.data(), static_cast<DWORD>(bytes.size()), true)) {
    return {IsServerThere() ? Outcome::kNotTaken : Outcome::kNotRunning, {}};
  }
  if (!reply_) return {Outcome::kNoReply, {}};
  return {Outcome::kReplied, *reply_};
}

LRESULT CommandClient::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_COPYDATA) return Default(message, wParam, lParam);
  if (lParam != 0) Take(*reinterpret_cast<const COPYDATASTRUCT*>(lParam));
  return TRUE;
}

void CommandClient::Take(const COPYDATASTRUCT& record) {
  Text line = TextOfCopyData(record, ansi_);
  if (IsEvent(line)) {
    if (onEvent_) onEvent_(line);
    return;
  }
  replyTag_ = record.dwData;
  reply_ = std::move(line);
}

}  // namespace jotlets

#include "command/reply_channel.h"

#include <algorithm>

namespace jotlets {

bool Listeners::Register(ClientWindow client) {
  if (client == 0 || IsRegistered(client)) return false;
  listeners_.push_back(client);
  return true;
}

bool Listeners::Deregister(ClientWindow client) { return std::erase(listeners_, client) > 0; }

bool Listeners::IsRegistered(ClientWindow client) const {
  return std::find(listeners_.begin(), listeners_.end(), client) != listeners_.end();
}

void Listeners::NotifyListeners(TextView line) {
  const WaitBudget budget(lines_.Transport());
  // A listener may register, deregister or go away while an event is under way: the list is copied first, and
  // each listener looked up again.
  const std::vector<ClientWindow> now = listeners_;
  for (std::size_t at = 0; at < now.size(); ++at) {
    if (IsRegistered(now[at]) && !lines_.Send(now[at], 0, line, budget.ForOneOf(now.size() - at)))
      Deregister(now[at]);
  }
}

void ApiReplyChannel::SendLine(TextView line) const {
  replied_ = true;
  if (client_ != 0) lines_.Send(client_, tag_, line, WaitBudget::kMilliseconds);
}

void ApiReplyChannel::Ok(TextView word) const { SendLine(Text(u"000 OK ").append(word)); }

void ApiReplyChannel::Value(TextView value) const { SendLine(Text(u"001 ").append(value)); }

}  // namespace jotlets

#include "command/reply_channel.h"

#include <algorithm>

namespace jotlets {
namespace {

void LogSending(Log& log, TextView line) { log.Write(kLogDetail, u"API sending: \"", line, u"\""); }

}  // namespace

Listeners::Listener* Listeners::Find(ClientWindow client) {
  const auto found = std::find_if(listeners_.begin(), listeners_.end(),
                                  [client](const Listener& listener) { return listener.client == client; });
  return found == listeners_.end() ? nullptr : &*found;
}

bool Listeners::Register(ClientWindow client) {
  if (client == 0 || Find(client) != nullptr) return false;
  listeners_.push_back({client, 0});
  return true;
}

bool Listeners::Deregister(ClientWindow client) {
  return std::erase_if(listeners_, [client](const Listener& listener) { return listener.client == client; }) >
         0;
}

bool Listeners::IsRegistered(ClientWindow client) const {
  return std::any_of(listeners_.begin(), listeners_.end(),
                     [client](const Listener& listener) { return listener.client == client; });
}

void Listeners::NotifyListeners(TextView line) {
  // A listener may register, deregister or go away while an event is under way: the list is copied first, and
  // each listener looked up again.
  const std::vector<Listener> now = listeners_;
  for (const Listener& each : now) {
    if (!IsRegistered(each.client)) continue;
    if (!transport_.Exists(each.client)) {
      Deregister(each.client);
      continue;
    }
    LogSending(log_, line);
    const Delivery delivery = transport_.Send(each.client, 0, line);
    Listener* listener = Find(each.client);
    if (listener == nullptr) continue;
    listener->hungInARow = delivery == Delivery::kHung ? listener->hungInARow + 1 : 0;
    if (delivery == Delivery::kGone) {
      Deregister(each.client);
    } else if (listener->hungInARow >= kHungLimit) {
      log_.Write(kLogLifecycle, u"A listener does not answer and gets no more events");
      Deregister(each.client);
    }
  }
}

void ApiReplyChannel::SendLine(TextView line) const {
  if (client_ == 0 || !transport_.Exists(client_)) return;
  LogSending(log_, line);
  transport_.Send(client_, tag_, line);
}

void ApiReplyChannel::Ok(TextView word) const { SendLine(Text(u"000 OK ").append(word)); }

void ApiReplyChannel::Value(TextView value) const { SendLine(Text(u"001 ").append(value)); }

}  // namespace jotlets

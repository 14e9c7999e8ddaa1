#include "command/client_lines.h"

#include <algorithm>
#include <utility>

namespace jotlets {

ClientLines::Waiting* ClientLines::Find(ClientWindow client) {
  const auto found = std::find_if(waiting_.begin(), waiting_.end(),
                                  [client](const Waiting& each) { return each.client == client; });
  return found == waiting_.end() ? nullptr : &*found;
}

bool ClientLines::Send(ClientWindow client, std::uintptr_t tag, TextView line, std::uint32_t milliseconds) {
  if (!transport_.Exists(client)) {
    Forget(client);
    return false;
  }
  if (Find(client) == nullptr && milliseconds == 0) WaitFor(client);
  if (Waiting* waiting = Find(client)) {
    Keep(*waiting, tag, line);
    return true;
  }
  const Delivery delivery = Carry(client, {tag, Text(line)}, milliseconds);
  if (delivery == Delivery::kHung && Find(client) == nullptr) WaitFor(client);
  return delivery != Delivery::kGone;
}

void ClientLines::Keep(Waiting& waiting, std::uintptr_t tag, TextView line) {
  // Once a line is missing, those behind it would tell of things out of their order.
  const bool full = waiting.lines.size() >= kMaxLines || waiting.units + line.size() > kMaxUnits;
  if (full || waiting.leftOut > 0) {
    if (waiting.leftOut++ == 0)
      log_.Write(kLogLifecycle, u"A client does not answer, and no more lines are kept for it");
    return;
  }
  waiting.units += line.size();
  waiting.lines.push_back({tag, Text(line)});
}

void ClientLines::WaitFor(ClientWindow client) {
  waiting_.push_back({client, {}, 0, 0});
  if (!transport_.AskForAnswer(client)) Forget(client);
}

void ClientLines::Forget(ClientWindow client) {
  std::erase_if(waiting_, [client](const Waiting& each) { return each.client == client; });
}

Delivery ClientLines::Carry(ClientWindow client, const Line& line, std::uint32_t milliseconds) {
  log_.Write(kLogDetail, u"API sending: \"", line.text, u"\"");
  return transport_.Send(client, line.tag, line.text, milliseconds);
}

// What is sent to the client meanwhile, from inside a delivery, is kept behind the rest.
void ClientLines::OnAnswers(ClientWindow client) {
  const WaitBudget budget(transport_);
  while (Waiting* waiting = Find(client)) {
    if (waiting->lines.empty()) {
      if (waiting->leftOut > 0)
        log_.Write(kLogLifecycle, u"A client answers again; lines left out: ",
                   static_cast<std::int64_t>(waiting->leftOut));
      return Forget(client);
    }
    const std::uint32_t rest = budget.ForOneOf(1);
    if (rest == 0) break;
    const Line line = std::move(waiting->lines.front());
    waiting->lines.pop_front();
    waiting->units -= line.text.size();
    const Delivery delivery = Carry(client, line, rest);
    if (delivery == Delivery::kGone) return Forget(client);
    if (delivery == Delivery::kHung) break;
  }
  if (Find(client) != nullptr && !transport_.AskForAnswer(client)) Forget(client);
}

}  // namespace jotlets

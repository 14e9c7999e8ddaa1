// Lines of commands. Each has exactly one reply, also when a listener sends the next one from inside an
// event.
#include "fuzz.h"

namespace {

void CheckRouting(jotlets::TextView text) {
  using namespace jotlets;
  const Inbound open = RouteInbound(text, false);
  const Inbound fixed = RouteInbound(text, true);
  for (const Inbound& inbound : {open, fixed}) {
    Check(text.ends_with(inbound.text));
    Check((inbound.kind == InboundKind::kCommand) == StartsWithIgnoreCase(text, u"api "));
  }
  Check(fixed.kind != InboundKind::kSkinFile);
  if (open.kind != InboundKind::kSkinFile) return Check(open.kind == fixed.kind && open.text == fixed.text);
  Check(open.text == text && text.find_first_of(u"\r\n") == TextView::npos && HasExtension(text, u".jsk"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  if (size > 10'000) return 0;
  const Text script = FromUtf8(Bytes(data, size));
  TextView rest = script;
  const auto next = [&rest] {
    const Split split = SplitAtFirst(rest, u'\n');
    rest = split.tail;
    return split.head;
  };
  FakeProgram program;
  program.Add(u"A1").record.title = u"title";
  program.Add(u"B2").record.isImage = 1;
  constexpr ClientWindow kListener = 8;
  program.listeners.Register(kListener);
  int depth = 0;
  program.transport.onSend = [&](ClientWindow client, TextView line) {
    Check(!line.empty());
    if (client != kListener || depth > 5 || rest.empty()) return;
    ++depth;
    program.Execute(next(), kListener);
    --depth;
  };
  CheckRouting(script);
  while (!rest.empty()) {
    CheckRouting(SplitAtFirst(rest, u'\n').head);
    const Inbound inbound = RouteInbound(next(), false);
    if (inbound.kind != InboundKind::kCommand) continue;
    program.transport.sent.clear();
    program.Execute(inbound.text);
    int replies = 0;
    for (const auto& sent : program.transport.sent) {
      replies += sent.client == FakeProgram::kClient && sent.tag == FakeProgram::kTag ? 1 : 0;
    }
    Check(replies == 1);
  }
  return 0;
}

// jotletctl: sends commands to the running program and prints the replies.
//
//   jotletctl do new jotlet Hello    one command; exit code 0 for a reply 000 or 001, 1 for any other, 2 when
//   no
//                                    program runs, 3 for a command that cannot be sent
//   jotletctl                        one command a line from standard input; the exit code of the worst
//   jotletctl --listen               registers and prints events as they come, until stopped
#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>

#include "base/win/wide.h"
#include "command/win/command_client.h"

namespace jotlets {
namespace {

constexpr UINT kLookMilliseconds = 1000;

enum ExitCode { kDone = 0, kRefused = 1, kNotRunning = 2, kNotSent = 3 };

constexpr char kUsage[] =
    "jotletctl COMMAND...   send one command, print its reply\n"
    "jotletctl              send one command a line from standard input\n"
    "jotletctl --listen     print events as they come, until stopped\n"
    "Exit codes: 0 done, 1 refused, 2 no program runs, 3 could not be sent.\n";

void PrintLine(std::FILE* to, TextView line) {
  const std::string bytes = ToUtf8(line) + "\n";
  std::fwrite(bytes.data(), 1, bytes.size(), to);
  std::fflush(to);
}

int Execute(CommandClient& client, TextView command) {
  const CommandClient::Result result = client.Send(command);
  switch (result.outcome) {
    case CommandClient::Outcome::kReplied:
      PrintLine(stdout, result.reply);
      return result.reply.starts_with(u"000") || result.reply.starts_with(u"001") ? kDone : kRefused;
    case CommandClient::Outcome::kNotRunning:
      PrintLine(stderr, u"jotletctl: Jotlets is not running");
      return kNotRunning;
    case CommandClient::Outcome::kNotTaken:
      PrintLine(stderr,
                u"jotletctl: Jotlets did not take the command: it is starting or ending, or it is too long");
      return kNotSent;
    case CommandClient::Outcome::kNoReply: PrintLine(stderr, u"jotletctl: no reply"); return kNotRunning;
    case CommandClient::Outcome::kNotCarried:
      PrintLine(stderr,
                u"jotletctl: the command holds characters that the command interface cannot carry; "
                u"\"set desktop <id> utext\" and \"utitle\" take any text in hex form");
      return kNotSent;
  }
  return kNotSent;
}

int ExecuteLines(CommandClient& client) {
  int worst = kDone;
  for (std::string line; std::getline(std::cin, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) worst = std::max(worst, Execute(client, FromUtf8(line)));
  }
  return worst;
}

int Listen(CommandClient& client) {
  client.OnEvent([](TextView line) {
    PrintLine(stdout, line);
    // Events are served inside GetMessage, which would go on waiting.
    if (line.starts_with(u"503")) PostQuitMessage(0);
  });
  const int registered = Execute(client, u"do register");
  // A program that was killed says no farewell.
  SetTimer(client.Handle(), 1, kLookMilliseconds, nullptr);
  MSG message{};
  while (registered == kDone && CommandClient::IsServerThere() && GetMessageW(&message, nullptr, 0, 0) > 0) {
    DispatchMessageW(&message);
  }
  return registered;
}

Text JoinArguments(int count, wchar_t** arguments) {
  Text command;
  for (int i = 1; i < count; ++i) {
    if (i > 1) command.push_back(u' ');
    command.append(FromWide(arguments[i]));
  }
  return command;
}

}  // namespace
}  // namespace jotlets

int wmain(int count, wchar_t** arguments) {
  using namespace jotlets;
  // Replies are UTF-8 with "\n" alone, whatever the console thinks.
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stdin), _O_BINARY);
  const Text command = JoinArguments(count, arguments);
  if (command == u"--help" || command == u"-h") {
    std::fputs(kUsage, stdout);
    return kDone;
  }
  CommandClient client;
  if (!client.Open()) return kNotSent;
  if (command == u"--listen") return Listen(client);
  return count > 1 ? Execute(client, command) : ExecuteLines(client);
}

// jotletctl: sends commands to the running program and prints the replies; see `kUsage`.
#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "base/win/wide.h"
#include "command/completion.h"
#include "command/reply_json.h"
#include "command/win/command_client.h"

namespace jotlets {
namespace {

constexpr UINT kLookMilliseconds = 1000;
constexpr DWORD kTryMilliseconds = 50;
constexpr std::int32_t kUsualWaitSeconds = 30;

enum ExitCode { kDone = 0, kRefused = 1, kNotRunning = 2, kNotSent = 3 };

constexpr char kUsage[] =
    "jotletctl [--wait[=SECONDS]] [--json] COMMAND...   send one command, print its reply\n"
    "jotletctl [--wait[=SECONDS]] [--json]              send one command a line from standard input\n"
    "jotletctl [--wait[=SECONDS]] [--json] --listen     print events as they come, until stopped\n"
    "jotletctl --completion bash|powershell             print a script that completes commands and ids\n"
    "--wait: first wait until Jotlets answers, 30 seconds at most unless told otherwise.\n"
    "--json: print every reply and event as a JSON object in one line.\n"
    "Exit codes: 0 done, 1 refused, 2 no program runs, 3 could not be sent.\n";

constexpr char kBashCompletion[] =
    "_jotletctl() {\n"
    "  local IFS=$'\\n'\n"
    "  COMPREPLY=($(jotletctl --complete \"${COMP_WORDS[@]:1:COMP_CWORD}\"))\n"
    "}\n"
    "complete -F _jotletctl jotletctl\n";

// A word that is still empty does not reach a program as an argument: "--next" stands for it.
constexpr char kPowerShellCompletion[] =
    "Register-ArgumentCompleter -Native -CommandName jotletctl -ScriptBlock {\n"
    "  param($begun, $typed, $cursor)\n"
    "  $words = @($typed.CommandElements | Select-Object -Skip 1 | ForEach-Object { $_.ToString() })\n"
    "  if (-not $begun) { $words += '--next' }\n"
    "  jotletctl --complete @words | ForEach-Object {\n"
    "    [System.Management.Automation.CompletionResult]::new($_)\n"
    "  }\n"
    "}\n";

void PrintBytes(std::FILE* to, const std::string& bytes) {
  std::fwrite(bytes.data(), 1, bytes.size(), to);
  std::fflush(to);
}

void PrintLine(std::FILE* to, TextView line) { PrintBytes(to, ToUtf8(line) + "\n"); }

struct Arguments {
  std::optional<std::int32_t> waitSeconds;
  bool json = false;
  bool listen = false;
  std::vector<Text> words;  // the command, as the shell has split it
};

// Options stand before the command: what follows its first word belongs to it.
Arguments ParseArguments(int count, wchar_t** given) {
  constexpr TextView kWait = u"--wait";
  constexpr TextView kWaitFor = u"--wait=";
  Arguments arguments;
  for (int i = 1; i < count; ++i) {
    Text word(FromWide(given[i]));
    if (!arguments.words.empty()) {
      arguments.words.push_back(std::move(word));
    } else if (word == kWait) {
      arguments.waitSeconds = kUsualWaitSeconds;
    } else if (word.starts_with(kWaitFor)) {
      arguments.waitSeconds = std::max(ParseInt(TextView(word).substr(kWaitFor.size())), 0);
    } else if (word == u"--json") {
      arguments.json = true;
    } else if (word == u"--listen") {
      arguments.listen = true;
    } else {
      arguments.words.push_back(std::move(word));
    }
  }
  return arguments;
}

Text Joined(const std::vector<Text>& words) {
  Text command;
  for (const Text& word : words) command.append(command.empty() ? u"" : u" ").append(word);
  return command;
}

bool IsDone(TextView reply) { return reply.starts_with(u"000") || reply.starts_with(u"001"); }

int Execute(CommandClient& client, TextView command, bool json) {
  const CommandClient::Result result = client.Send(command);
  switch (result.outcome) {
    case CommandClient::Outcome::kReplied:
      PrintBytes(stdout, (json ? ReplyAsJson(command, result.reply) : ToUtf8(result.reply)) + "\n");
      return IsDone(result.reply) ? kDone : kRefused;
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

int ExecuteLines(CommandClient& client, bool json) {
  int worst = kDone;
  for (std::string line; std::getline(std::cin, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) worst = std::max(worst, Execute(client, FromUtf8(line), json));
  }
  return worst;
}

int Listen(CommandClient& client, bool json) {
  client.OnEvent([json](TextView line) {
    PrintBytes(stdout, (json ? EventAsJson(line) : ToUtf8(line)) + "\n");
    // Events are served inside GetMessage, which would go on waiting.
    if (line.starts_with(u"503")) PostQuitMessage(0);
  });
  const int registered = Execute(client, u"do register", json);
  // A program that was killed says no farewell.
  SetTimer(client.Handle(), 1, kLookMilliseconds, nullptr);
  MSG message{};
  while (registered == kDone && CommandClient::IsServerThere() && GetMessageW(&message, nullptr, 0, 0) > 0) {
    DispatchMessageW(&message);
  }
  return registered;
}

// A program that is starting takes no commands until it has loaded its notes.
void WaitForAnswer(CommandClient& client, std::int32_t seconds) {
  const ULONGLONG until = GetTickCount64() + static_cast<ULONGLONG>(seconds) * 1000;
  while (client.Send(u"do ping").outcome != CommandClient::Outcome::kReplied && GetTickCount64() < until) {
    Sleep(kTryMilliseconds);
  }
}

int PrintCompletion(TextView shell) {
  if (shell == u"bash") return std::fputs(kBashCompletion, stdout), kDone;
  if (shell == u"powershell") return std::fputs(kPowerShellCompletion, stdout), kDone;
  std::fputs(kUsage, stderr);
  return kNotSent;
}

std::vector<Text> ListFromProgram(CommandClient& client, TextView kind) {
  const CommandClient::Result result = client.Send(Text(u"get list ").append(kind));
  std::vector<Text> ids;
  TextView rest = result.reply;
  if (!rest.starts_with(u"001 ")) return ids;
  for (rest.remove_prefix(4); !rest.empty();) {
    const Split split = SplitAtFirst(rest, u',');
    ids.emplace_back(split.head);
    rest = split.tail;
  }
  return ids;
}

// The last word is the one that is being typed.
int Complete(CommandClient& client, std::vector<Text> words) {
  Text begun;
  if (!words.empty()) {
    begun = words.back() == u"--next" ? Text() : words.back();
    words.pop_back();
  }
  while (!words.empty() && words.front().starts_with(u"--")) words.erase(words.begin());
  for (const Text& word :
       CompleteCommand(words, begun, [&client](TextView kind) { return ListFromProgram(client, kind); })) {
    PrintLine(stdout, word);
  }
  return kDone;
}

int Run(Arguments arguments) {
  const Text first = arguments.words.empty() ? Text() : arguments.words.front();
  if (first == u"--help" || first == u"-h") return std::fputs(kUsage, stdout), kDone;
  if (first == u"--completion")
    return PrintCompletion(arguments.words.size() > 1 ? arguments.words[1] : first);
  CommandClient client;
  if (!client.Open()) return kNotSent;
  if (first == u"--complete") return Complete(client, {arguments.words.begin() + 1, arguments.words.end()});
  if (first.starts_with(u"--")) return std::fputs(kUsage, stderr), kNotSent;
  if (arguments.waitSeconds) WaitForAnswer(client, *arguments.waitSeconds);
  if (arguments.listen) return Listen(client, arguments.json);
  return arguments.words.empty() ? ExecuteLines(client, arguments.json)
                                 : Execute(client, Joined(arguments.words), arguments.json);
}

}  // namespace
}  // namespace jotlets

int wmain(int count, wchar_t** arguments) {
  using namespace jotlets;
  // Replies are UTF-8 with "\n" alone, whatever the console thinks.
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stdin), _O_BINARY);
  return Run(ParseArguments(count, arguments));
}

#include "ui/user_messages.h"

#include "res/resource.h"
#include "ui/message_dialog.h"

namespace jotlets {
namespace {

using Kind = BMessageDlg::Kind;

bool ShowBox(HWND owner, const Resources& resources, const Text& words, Kind kind) {
  return BMessageDlg(resources, kind, words).Run(owner);
}

Text WithCount(const Resources& resources, UINT text, std::size_t count) {
  return ReplaceAll(resources.String(text), u"%n", IntText(static_cast<std::int64_t>(count)));
}

}  // namespace

void TellCount(HWND owner, const Resources& resources, UINT text, std::size_t count) {
  ShowBox(owner, resources, WithCount(resources, text, count), Kind::kWarning);
}

bool AskCount(HWND owner, const Resources& resources, UINT question, std::size_t count) {
  return ShowBox(owner, resources, WithCount(resources, question, count), Kind::kQuestion);
}

void Tell(HWND owner, const Resources& resources, UINT text, TextView value) {
  ShowBox(owner, resources, ReplaceAll(resources.String(text), u"%s", value), Kind::kWarning);
}

void Report(HWND owner, const Resources& resources, const Text& told, bool left) {
  ShowBox(owner, resources, told, left ? Kind::kWarning : Kind::kInformation);
}

bool AskFirst(HWND owner, const Resources& resources, UINT question, TextView value) {
  return ShowBox(owner, resources, ReplaceAll(resources.String(question), u"%s", value),
                 Kind::kGraveQuestion);
}

bool Ask(HWND owner, const Resources& resources, UINT question) {
  return ShowBox(owner, resources, resources.String(question), Kind::kQuestion);
}

}  // namespace jotlets

#include "app/win/user_messages.h"

#include "base/win/wide.h"
#include "res/resource.h"

namespace jotlets {
namespace {

int ShowBox(HWND owner, const Resources& resources, const Text& words, UINT kind) {
  return MessageBoxW(owner, Wide(words), Wide(resources.String(IDS_APP_TITLE)), kind);
}

Text WithCount(const Resources& resources, UINT text, std::size_t count) {
  return ReplaceAll(resources.String(text), u"%n", IntText(static_cast<std::int64_t>(count)));
}

}  // namespace

void TellCount(HWND owner, const Resources& resources, UINT text, std::size_t count) {
  ShowBox(owner, resources, WithCount(resources, text, count), MB_OK | MB_ICONWARNING);
}

bool AskCount(HWND owner, const Resources& resources, UINT question, std::size_t count) {
  return ShowBox(owner, resources, WithCount(resources, question, count), MB_YESNO | MB_ICONQUESTION) ==
         IDYES;
}

void Tell(HWND owner, const Resources& resources, UINT text, TextView value) {
  ShowBox(owner, resources, ReplaceAll(resources.String(text), u"%s", value), MB_OK | MB_ICONWARNING);
}

bool Ask(HWND owner, const Resources& resources, UINT question) {
  return ShowBox(owner, resources, resources.String(question), MB_YESNO | MB_ICONQUESTION) == IDYES;
}

Text DescribeDamage(const Resources& resources, const LoadedData& loaded) {
  Text text = loaded.MustNotBeReplaced()
                  ? resources.String(IDS_DAMAGED_NOT_KEPT)
                  : ReplaceAll(resources.String(IDS_DAMAGED_KEPT), u"%s", loaded.keptAs);
  if (!loaded.loadedInstead.empty()) {
    text += u"\n" + ReplaceAll(resources.String(IDS_DAMAGED_INSTEAD), u"%s", loaded.loadedInstead);
  }
  return text;
}

}  // namespace jotlets

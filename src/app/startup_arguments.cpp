#include "app/startup_arguments.h"

namespace jotlets {
namespace {

TextView WithoutQuotes(TextView text) {
  if (text.size() >= 2 && text.front() == u'"' && text.back() == u'"') return text.substr(1, text.size() - 2);
  return text;
}

}  // namespace

StartRequest ParseCommandLine(TextView commandLine) {
  const TextView request = WithoutQuotes(TrimBlanks(commandLine));
  if (request == u"-?" || request == u"?") return {StartKind::kUsage, {}};
  if (request.empty()) return {StartKind::kNormal, {}};
  if (FindIgnoreCase(request, u"-rescue") != TextView::npos) return {StartKind::kRescue, {}};
  if (EqualIgnoreCase(request, u"-close")) return {StartKind::kClose, {}};
  return {HasExtension(request, u".jsk") ? StartKind::kSkinFile : StartKind::kNoteFile, Text(request)};
}

}  // namespace jotlets

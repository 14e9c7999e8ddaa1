#include "app/win/commands/skin_commands.h"

#include "data/data_file.h"
#include "note/papers.h"
#include "res/resource.h"
#include "skin/win/skin_dialog.h"

namespace jotlets {

bool SkinCommands::SetDefault(TextView path) {
  if (IsFixedByPolicy()) return false;
  const std::optional<Text> name = skins_.Install(files_, path);
  if (name) UseDefault(*name);
  return name.has_value();
}

bool SkinCommands::OpenFile(TextView path) {
  if (SetDefault(path)) return true;
  tray_.Balloon(kVersionText, ReplaceAll(resources_.String(IDS_SKIN_UNREADABLE), u"%s", path));
  return false;
}

void SkinCommands::UseDefault(const Text& name) {
  log_.Write(kLogDetail, u"Setting skin:", name);
  options_.Current().skin = name;
  skins_.SetDefault(name);
  notes_.RefreshSkins();
  stacks_.RefreshSkins();
  saving_.SetOptionsDirty();
}

bool SkinCommands::SetOfNote(BJotlet& jotlet, TextView nameOrPath) {
  if (IsFixedByPolicy()) return false;
  Text name(nameOrPath);
  if (nameOrPath.find_first_of(u"\\/") != TextView::npos) {
    const std::optional<Text> installed = skins_.Install(files_, nameOrPath);
    if (!installed) return false;
    name = *installed;
  } else if (!skins_.IsThere(name)) {
    return false;
  }
  notes_.SetSkin(jotlet, name);
  return true;
}

void SkinCommands::Choose(BJotlet& jotlet) {
  if (IsFixedByPolicy()) return;
  const Text id = jotlet.StoredRecord().id;
  const JotletData& record = jotlet.StoredRecord();
  const Text current = record.skin.empty() ? options_.Current().skin : record.skin;
  const std::optional<SkinChoice> choice =
      BSkinDlg(resources_, skins_, current, record.colour, DarkPaper(record.colour)).Choose(jotlet.Handle());
  // A dialog lets everything else go on: the note may be gone when it ends.
  BJotlet* found = notes_.Find(id);
  if (!choice || found == nullptr) return;
  if (choice->asDefault) UseDefault(choice->name);
  // The notes took the new skin, and a listener may have closed this one meanwhile.
  found = notes_.Find(id);
  if (found != nullptr) notes_.SetSkin(*found, choice->asDefault ? TextView() : TextView(choice->name));
}

}  // namespace jotlets

#include "app/win/commands/note_commands.h"

#include <shellapi.h>

#include "app/win/main_frame.h"
#include "app/win/main_menus.h"
#include "base/win/shown_time.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "note/action_table.h"
#include "note/win/edit_text.h"
#include "note/win/font_chooser.h"
#include "note/win/properties_dialog.h"
#include "res/resource.h"
#include "schedule/win/attach_dialog.h"
#include "skin/win/skin_dialog.h"
#include "ui/system_choosers.h"
#include "ui/text_dialog.h"
#include "ui/user_messages.h"

namespace jotlets {

struct NoteCommands::Handler {
  ActionCode code;
  void (NoteCommands::*run)(BJotlet& jotlet) = nullptr;
  UINT command = 0;  // instead, one of the program's, whatever the note
};

constexpr NoteCommands::Handler NoteCommands::kHandlers[] = {
    {kActionClose, &NoteCommands::Close},
    {kActionDelete, &NoteCommands::Delete},
    {kActionEditTitle, &NoteCommands::EditTitle},
    {kActionEditUserString1, &NoteCommands::EditUserString},
    {kActionColour, &NoteCommands::ChooseColour},
    {kActionFont, &NoteCommands::ChooseFont},
    {kActionFindText, &NoteCommands::FindText},
    {kActionSetSkin, &NoteCommands::ChooseSkin},
    {kActionDefaultSkin, &NoteCommands::ChooseSkin},
    {kActionSave, &NoteCommands::Save},
    {kActionCopyToFile, &NoteCommands::CopyToFile},
    {kActionMoveToFile, &NoteCommands::MoveToFile},
    {kActionImportFromFile, &NoteCommands::ImportFromFile},
    {kActionOpenLog, &NoteCommands::OpenLog},
    {kActionOpenIni, &NoteCommands::OpenIni},
    {kActionSolo, &NoteCommands::Solo},
    {kActionOpenJotletContext, &NoteCommands::JotletMenu},
    {kActionOpenTextContext, &NoteCommands::TextMenu},
    {kActionOrphanCheck, &NoteCommands::OrphanCheck},
    {kActionProperties, &NoteCommands::Properties},
    {kActionSleep, &NoteCommands::Sleep},
    {kActionRecurrence, &NoteCommands::Recur},
    {kActionAlarm, &NoteCommands::Alarm},
    {kActionPlayAlarm, &NoteCommands::PlayAlarm},
    {kActionAttach, &NoteCommands::Attach},
    {kActionShowParent, &NoteCommands::ShowParent},
    {.code = kActionNewJotlet, .command = ID_NEW_JOTLET},
    {.code = kActionNewFromClipboard, .command = ID_NEW_FROM_CLIPBOARD},
    {.code = kActionRescue, .command = ID_RESCUE},
    {.code = kActionHideAll, .command = ID_SHOW_OR_HIDE},
    {.code = kActionExitApp, .command = ID_EXIT_JOTLETS},
    {.code = kActionBackup, .command = ID_BACKUP},
    {.code = kActionFriends, .command = ID_FRIENDS},
    {.code = kActionManage, .command = ID_MANAGE},
};

namespace {

// Those that are commands of the program, whatever the note.
constexpr std::pair<ActionCode, UINT> kOfProgram[] = {
    {kActionNewJotlet, ID_NEW_JOTLET}, {kActionNewFromClipboard, ID_NEW_FROM_CLIPBOARD},
    {kActionRescue, ID_RESCUE},        {kActionHideAll, ID_SHOW_OR_HIDE},
    {kActionExitApp, ID_EXIT_JOTLETS}, {kActionBackup, ID_BACKUP},
    {kActionFriends, ID_FRIENDS},      {kActionManage, ID_MANAGE},
};

// The files that a content can be saved as, by the extension of its own.
UINT FilterOf(const Text& extension) { return extension == u"png" ? IDS_FILTER_PICTURE : IDS_FILTER_TEXT; }

}  // namespace

bool NoteCommands::Do(const Text& id, ActionCode action) {
  static_assert(AreHandlersBy(ActionBy::kProgram, kHandlers));
  const Handler* handler = HandlerOf(kHandlers, RowOf(action));
  if (handler == nullptr) return false;
  if (handler->command != 0) return frame_.OnCommand(handler->command), true;
  BJotlet* jotlet = frame_.FindJotlet(id);
  if (jotlet == nullptr) return false;
  (this->*handler->run)(*jotlet);
  return true;
}

ActionFacts NoteCommands::FactsOf(const BJotlet& jotlet) const {
  const JotletData& record = jotlet.StoredRecord();
  ActionFacts facts;
  facts.image = record.IsImage();
  facts.readOnly = record.readOnly;
  facts.rolled = record.rolled;
  facts.onTop = record.onTop;
  facts.stang = record.stang;
  facts.user1 = record.user1;
  facts.user2 = record.user2;
  facts.user3 = record.user3;
  facts.transparency = record.transparency;
  if (const BEdit* edit = jotlet.Editor()) facts.edit = edit->Facts(frame_.Desktop().Highlights());
  facts.skinFixed = frame_.IsSkinFixedByPolicy();
  facts.inStack = frame_.FindStack(record.stack) != nullptr;
  return facts;
}

void NoteCommands::ShowMenu(BJotlet& jotlet, NoteMenu which) {
  if (jotlet.IsSounding()) return sleep_.Snooze(jotlet);
  const Text id = jotlet.StoredRecord().id;
  const ActionMenu menu(resources_, which, FactsOf(jotlet), ExtrasOf(jotlet));
  CustomCommands& custom = frame_.Commands().CustomMenu(MenuKind::kOfNotes);
  if (which == NoteMenu::kJotletMenu) InsertCustomEntries(menu.Handle(), -1, custom);
  std::vector<std::int32_t> stacks;
  for (const StackRecord& stack : frame_.Lists().stacks) stacks.push_back(stack.number);
  // The menu runs a message loop of its own, in which anything may happen to the note.
  const UINT chosen = menu.Choose(jotlet.Handle());
  BJotlet* there = frame_.FindJotlet(id);
  if (there == nullptr || chosen == 0) return;
  if (const Text word = custom.WordOf(static_cast<std::int32_t>(chosen)); !word.empty()) {
    frame_.NotifyListeners(u"505 custom jotlet command: " + word, id);
    return;
  }
  if (chosen >= kFirstStack) {
    frame_.Stacks().Add(stacks[chosen - kFirstStack], *there);
  } else if (chosen >= kFirstExtra) {
    DoExtra(*there, chosen);
  } else {
    there->DoAction(static_cast<ActionCode>(chosen), {});
  }
}

// Entries that only some notes have, or that depend on which stacks there are.
std::vector<ExtraEntry> NoteCommands::ExtrasOf(const BJotlet& jotlet) const {
  const JotletData& record = jotlet.StoredRecord();
  const bool inStack = frame_.FindStack(record.stack) != nullptr;
  std::vector<ExtraEntry> extras = {
      {MenuPart::kAttachment, kUnattach, resources_.String(IDS_MENU_UNATTACH), record.IsAttached()},
      {MenuPart::kStacks, kNewStack, resources_.String(IDS_MENU_NEW_STACK)},
      {MenuPart::kStacks, kLeaveStack, resources_.String(IDS_MENU_LEAVE_STACK), inStack},
      {MenuPart::kStacks, kShowStack, resources_.String(IDS_MENU_SHOW_STACK), inStack}};
  if (!frame_.Lists().stacks.empty()) extras.push_back({MenuPart::kStacks});
  UINT entry = kFirstStack;
  for (const StackRecord& stack : frame_.Lists().stacks) {
    // An ampersand of the name is no mnemonic.
    extras.push_back({MenuPart::kStacks, entry++, ReplaceAll(OneLine(stack.title), u"&", u"&&"), true,
                      stack.number == record.stack});
  }
  return extras;
}

void NoteCommands::DoExtra(BJotlet& jotlet, UINT chosen) {
  switch (chosen) {
    case kUnattach:
      for (BJotlet* note : frame_.Desktop().GroupOf(jotlet)) note->SetAttachment({});
      break;
    case kNewStack:
      if (const BStackDlg* stack = frame_.Stacks().Create(jotlet))
        frame_.Stacks().Add(stack->Number(), jotlet);
      break;
    case kLeaveStack: frame_.Stacks().TakeOut(jotlet); break;
    case kShowStack: ShowParent(jotlet); break;
    default: break;
  }
}

void NoteCommands::ShowParent(BJotlet& jotlet) {
  BStackDlg* stack = frame_.Stacks().Find(jotlet.StoredRecord().stack);
  if (stack == nullptr) return;
  stack->Show();
  stack->BringForward();
  SetForegroundWindow(stack->Handle());
}

void NoteCommands::Attach(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  const auto choice = BAttachDlg(resources_, frame_.AttachedNotes().Front(), jotlet.StoredRecord(),
                                 frame_.CurrentOptions().attachShowSystemWindows)
                          .Choose(jotlet.Handle());
  BJotlet* there = frame_.FindJotlet(id);
  if (!choice || there == nullptr) return;
  for (BJotlet* note : frame_.Desktop().GroupOf(*there)) frame_.AttachedNotes().Attach(*note, *choice);
}

void NoteCommands::JotletMenu(BJotlet& jotlet) { ShowMenu(jotlet, NoteMenu::kJotletMenu); }
void NoteCommands::TextMenu(BJotlet& jotlet) { ShowMenu(jotlet, NoteMenu::kTextMenu); }

void NoteCommands::Close(BJotlet& jotlet) { frame_.CloseForUser(jotlet.StoredRecord().id); }

void NoteCommands::Delete(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  if (Ask(jotlet.Handle(), resources_, IDS_CONFIRM_DELETE)) frame_.DeleteJotlet(id, u"deleted");
}

void NoteCommands::OrphanCheck(BJotlet&) { frame_.CheckContent(); }

void NoteCommands::EditTitle(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  const auto title = BTextDlg(resources_, IDS_EDIT_TITLE, jotlet.StoredRecord().title).Ask(jotlet.Handle());
  // A dialog lets everything else go on: the note may be gone when it ends. So below.
  BJotlet* there = frame_.FindJotlet(id);
  if (title && there != nullptr) there->SetTitle(*title);
}

void NoteCommands::EditUserString(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  const auto words =
      BTextDlg(resources_, IDS_EDIT_USER_STRING, jotlet.StoredRecord().userString1).Ask(jotlet.Handle());
  BJotlet* there = frame_.FindJotlet(id);
  if (words && there != nullptr) there->SetUserString(*words);
}

void NoteCommands::ChooseColour(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  const auto colour = ChooseSystemColour(jotlet.Handle(), jotlet.StoredRecord().colour);
  BJotlet* there = frame_.FindJotlet(id);
  if (colour && there != nullptr) there->SetColour(*colour);
}

void NoteCommands::ChooseFont(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  if (jotlet.Editor() == nullptr) return;
  const auto style = ChooseSystemFont(jotlet.Handle(), CurrentFont(*jotlet.Editor()));
  BJotlet* there = frame_.FindJotlet(id);
  if (style && there != nullptr && there->Editor() != nullptr) SetFont(*there->Editor(), *style);
}

void NoteCommands::FindText(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  const auto words = BTextDlg(resources_, IDS_FIND_TEXT, frame_.Desktop().Searched()).Ask(jotlet.Handle());
  BJotlet* there = frame_.FindJotlet(id);
  if (!words || words->empty() || there == nullptr || there->Editor() == nullptr) return;
  frame_.Desktop().SetSearched(*words);
  if (!FindNextText(*there->Editor(), *words)) Tell(there->Handle(), resources_, IDS_NOT_FOUND, *words);
}

void NoteCommands::ChooseSkin(BJotlet& jotlet) {
  if (frame_.IsSkinFixedByPolicy()) return;
  const Text id = jotlet.StoredRecord().id;
  const JotletData& record = jotlet.StoredRecord();
  const Text now = record.skin.empty() ? frame_.CurrentOptions().skin : record.skin;
  const std::optional<SkinChoice> choice =
      BSkinDlg(resources_, frame_.Skins(), now, record.colour).Choose(jotlet.Handle());
  BJotlet* there = frame_.FindJotlet(id);
  if (!choice || there == nullptr) return;
  if (choice->asDefault) frame_.UseDefaultSkin(choice->name);
  frame_.Desktop().SetSkin(*there, choice->asDefault ? TextView() : TextView(choice->name));
}

void NoteCommands::Save(BJotlet&) { frame_.SaveIfDirty(); }

bool NoteCommands::SaveToFile(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  const Text extension(jotlet.Content().Extension());
  const Text path = ChooseFileToSave(jotlet.Handle(), resources_.String(FilterOf(extension)), extension, {});
  BJotlet* there = frame_.FindJotlet(id);
  if (path.empty() || there == nullptr) return false;
  const FileStatus written = frame_.WriteCopy(*there, path);
  if (!written) Tell(there->Handle(), resources_, IDS_NOT_WRITTEN, path + u"\n\n" + written.reason);
  return written.ok;
}

void NoteCommands::CopyToFile(BJotlet& jotlet) { SaveToFile(jotlet); }

// Closed, not deleted: the file may not hold all that the note was.
void NoteCommands::MoveToFile(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  if (SaveToFile(jotlet)) frame_.CloseJotlet(id, u"movedToFile");
}

void NoteCommands::ImportFromFile(BJotlet& jotlet) {
  const Text path = ChooseFileToOpen(jotlet.Handle(), resources_.String(IDS_FILTER_IMPORT));
  if (!path.empty()) frame_.ImportFile(path);
}

void NoteCommands::OpenDocument(BJotlet& jotlet, TextView name) {
  const Text path = frame_.DataFolder() + Text(name);
  const auto result = reinterpret_cast<INT_PTR>(ShellExecuteW(
      jotlet.Handle(), L"open", L"notepad.exe", Wide(u"\"" + path + u"\""), nullptr, SW_SHOWNORMAL));
  constexpr INT_PTR kLastError = 32;  // of those that stand for failures
  if (result <= kLastError) frame_.Log(kLogLifecycle, u"Unable to open '", path, u"'");
}

void NoteCommands::OpenLog(BJotlet& jotlet) { OpenDocument(jotlet, kActivityLogName); }
void NoteCommands::OpenIni(BJotlet& jotlet) { OpenDocument(jotlet, kDataFileName); }

void NoteCommands::Solo(BJotlet& jotlet) { frame_.Desktop().HideOthers(jotlet); }

void NoteCommands::Properties(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  BPropertiesDlg dialog(resources_, jotlet.Record(),
                        [this](std::int32_t utc) { return ShownTime(frame_.Desktop().ToLocal(utc)); });
  if (!dialog.Edit(jotlet.Handle())) return;
  BJotlet* there = frame_.FindJotlet(id);
  if (there != nullptr) there->TakeProperties(dialog.Record());
}

}  // namespace jotlets

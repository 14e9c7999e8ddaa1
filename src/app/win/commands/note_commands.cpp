#include "app/win/commands/note_commands.h"

#include <shellapi.h>

#include "action/action_table.h"
#include "app/win/commands/arrange_notes.h"
#include "app/win/main_menus.h"
#include "base/win/shown_time.h"
#include "base/win/wide.h"
#include "data/data_folder.h"
#include "data/text_export.h"
#include "data/text_import.h"
#include "desk/win/note_links.h"
#include "editor/editor_keys.h"
#include "editor/font_history.h"
#include "editor/link_text.h"
#include "editor/web_search.h"
#include "editor/win/edit_style.h"
#include "editor/win/edit_text.h"
#include "editor/win/font_chooser.h"
#include "note/win/properties_dialog.h"
#include "res/picture_numbers.h"
#include "res/resource.h"
#include "schedule/win/attach_dialog.h"
#include "ui/choice_dialog.h"
#include "ui/system_choosers.h"
#include "ui/system_programs.h"
#include "ui/text_dialog.h"
#include "ui/user_messages.h"

namespace jotlets {

struct NoteCommands::Handler {
  ActionCode code = kActionNone;
  void (NoteCommands::*run)(BJotlet& jotlet) = nullptr;
  UINT command = 0;                                    // instead, one of the program's, whatever the note
  std::optional<Arrangement> arranges = std::nullopt;  // instead, all notes
};

constexpr NoteCommands::Handler NoteCommands::kHandlers[] = {
    {kActionClose, &NoteCommands::Close},
    {kActionDelete, &NoteCommands::Delete},
    {kActionEditTitle, &NoteCommands::EditTitle},
    {kActionEditUserString1, &NoteCommands::EditUserString},
    {kActionColour, &NoteCommands::ChooseColour},
    {kActionFont, &NoteCommands::ChooseFont},
    {kActionHyperlink, &NoteCommands::EditLink},
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
    {kActionStyles, &NoteCommands::Styles},
    {kActionSleep, &NoteCommands::Sleep},
    {kActionRecurrence, &NoteCommands::Recur},
    {kActionAlarm, &NoteCommands::Alarm},
    {kActionPlayAlarm, &NoteCommands::PlayAlarm},
    {kActionAttach, &NoteCommands::Attach},
    {kActionShowParent, &NoteCommands::ShowParent},
    {kActionStoreJotlet, &NoteCommands::StoreInCategory},
    {.code = kActionArrangeTiled, .arranges = Arrangement::kTile},
    {.code = kActionArrangeCascaded, .arranges = Arrangement::kCascade},
    {.code = kActionArrangeByColour, .arranges = Arrangement::kColours},
    {.code = kActionNewJotlet, .command = ID_NEW_JOTLET},
    {.code = kActionNewFromClipboard, .command = ID_NEW_FROM_CLIPBOARD},
    {.code = kActionGrabSs, .command = ID_GRAB_SCREEN},
    {.code = kActionGrabSsArea, .command = ID_GRAB_AREA},
    {.code = kActionRescue, .command = ID_RESCUE},
    {.code = kActionHideAll, .command = ID_SHOW_OR_HIDE},
    {.code = kActionExitApp, .command = ID_EXIT_JOTLETS},
    {.code = kActionBackup, .command = ID_BACKUP},
    {.code = kActionFriends, .command = ID_FRIENDS},
    {.code = kActionManage, .command = ID_MANAGE},
    {.code = kActionOptions, .command = ID_OPTIONS},
    {.code = kActionHelp, .command = ID_HELP_JOTLETS},
};

namespace {

// The files that a content can be saved as, by the extension of its own.
UINT FilterOf(const Text& extension) { return extension == u"png" ? IDS_FILTER_PICTURE : IDS_FILTER_TEXT; }

void OpenDocument(const NoteCommandTools& tools, const BJotlet& jotlet, TextView name) {
  const Text path = tools.desk.Folder() + Text(name);
  if (!OpenInNotepad(jotlet.Handle(), path)) tools.log.Write(kLogLifecycle, u"Unable to open '", path, u"'");
}

}  // namespace

bool NoteCommands::Do(const Text& id, ActionCode action) {
  static_assert(AreHandlersBy(ActionBy::kProgram, kHandlers));
  const Handler* handler = HandlerOf(kHandlers, RowOf(action));
  if (handler == nullptr) return false;
  if (handler->command != 0) return tools_.program.Do(handler->command), true;
  BJotlet* jotlet = tools_.notes.Find(id);
  if (jotlet == nullptr) return false;
  if (handler->arranges) return ArrangeNotes(*handler->arranges, tools_.notes, tools_.undo, *jotlet), true;
  (this->*handler->run)(*jotlet);
  return true;
}

void NoteCommands::ShowFile(BJotlet& jotlet) {
  const Text path = tools_.desk.Folder() + ContentPath(jotlet.StoredRecord());
  wchar_t folder[MAX_PATH]{};
  GetWindowsDirectoryW(folder, MAX_PATH);
  const Text explorer = WithSeparator(FromWide(folder)) + u"explorer.exe";
  const auto result = reinterpret_cast<INT_PTR>(ShellExecuteW(
      jotlet.Handle(), L"open", Wide(explorer), Wide(u"/select,\"" + path + u"\""), nullptr, SW_SHOWNORMAL));
  constexpr INT_PTR kLastError = 32;  // of those that stand for failures
  if (result <= kLastError) tools_.log.Write(kLogLifecycle, u"Unable to show '", path, u"'");
}

void NoteCommands::ShowParent(BJotlet& jotlet) {
  BStackDlg* stack = tools_.stacks.Find(jotlet.StoredRecord().stack);
  if (stack == nullptr) return;
  stack->Show();
  stack->BringForward();
  SetForegroundWindow(stack->Handle());
}

void NoteCommands::Attach(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  const auto choice = BAttachDlg(tools_.resources, tools_.front, jotlet.StoredRecord(),
                                 tools_.options.attachShowSystemWindows)
                          .Choose(jotlet.Handle());
  BJotlet* note = tools_.notes.Find(id);
  if (!choice || note == nullptr) return;
  // The window that the user pointed at goes before others that match, unless he changed the patterns so that
  // it does not.
  std::vector<WindowFacts> windows;
  for (ForeignWindow& window : ListForeignWindows(tools_.front.Now())) {
    const bool pointedAt = choice->window != nullptr && window.window == choice->window;
    windows.insert(pointedAt ? windows.begin() : windows.end(), std::move(window.facts));
  }
  for (BJotlet* each : tools_.notes.GroupOf(*note))
    tools_.attached.Attach(each->StoredRecord().id, choice->attachment, windows);
}

void NoteCommands::CloseForUser(const Text& id) {
  const BJotlet* note = tools_.notes.Find(id);
  if (note == nullptr) return;
  if (!tools_.undo.Close(id, note->SettledBounds()) && tools_.notes.Find(id) != nullptr)
    Tell(tools_.window.Handle(), tools_.resources, IDS_SAVE_FAILED, tools_.desk.Folder());
}

void NoteCommands::LeaveOrClose(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  const Choice choice =
      BChoiceDlg(IDD_ALT_F4, tools_.resources.String(IDS_ALT_F4)).Ask(tools_.resources, jotlet.Handle());
  switch (choice) {
    case Choice::kFirst: return CloseForUser(id);
    case Choice::kThird:
      tools_.options.altF4Leaves = true;
      tools_.saving.SetOptionsDirty();
      [[fallthrough]];
    case Choice::kSecond: return tools_.program.Do(ID_EXIT_JOTLETS);
    case Choice::kNeither: return;
  }
}

bool NoteCommands::Agrees(const BJotlet& jotlet, UINT question) {
  return AskFirst(jotlet.Handle(), tools_.resources, question, jotlet.TitleShown());
}

void NoteCommands::Close(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  if (!tools_.options.confirmClosure || Agrees(jotlet, IDS_CONFIRM_CLOSE)) CloseForUser(id);
}

void NoteCommands::Delete(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  if (!Agrees(jotlet, IDS_CONFIRM_DELETE)) return;
  if (const BJotlet* note = tools_.notes.Find(id)) tools_.undo.Delete(id, note->SettledBounds());
}

void NoteCommands::OrphanCheck(BJotlet&) { tools_.program.CheckContent(); }

void NoteCommands::EditTitle(BJotlet& jotlet) {
  if (jotlet.EditTitle()) return;
  const Text id = jotlet.StoredRecord().id;
  const auto title = BTextDlg(tools_.resources, IDS_EDIT_TITLE, IDS_LABEL_TITLE, jotlet.StoredRecord().title)
                         .Ask(jotlet.Handle());
  // A dialog lets everything else go on: the note may be gone when it ends. So below.
  BJotlet* note = tools_.notes.Find(id);
  if (title && note != nullptr) note->SetTitle(*title);
}

void NoteCommands::EditUserString(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  const auto words =
      BTextDlg(tools_.resources, IDS_EDIT_USER_STRING, IDS_LABEL_WORDS, jotlet.StoredRecord().userString1)
          .Ask(jotlet.Handle());
  BJotlet* note = tools_.notes.Find(id);
  if (words && note != nullptr) note->SetUserString(*words);
}

void NoteCommands::ChooseFont(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  if (jotlet.Editor() == nullptr) return;
  const auto style = ChooseSystemFont(jotlet.Handle(), CurrentFont(*jotlet.Editor()));
  BJotlet* note = tools_.notes.Find(id);
  if (!style || note == nullptr || note->Editor() == nullptr) return;
  SetFont(*note->Editor(), *style);
  RememberFont(style->face);
}

void NoteCommands::Styles(BJotlet& jotlet) {
  std::optional<TextStyle> selection;
  if (jotlet.Editor() != nullptr) selection = StyleOfSelection(*jotlet.Editor());
  tools_.program.EditStyles(jotlet.Handle(), std::move(selection));
}

// A link that is there is opened, and a selected address becomes one. For anything else the user gives an
// address, which goes behind what is selected.
void NoteCommands::EditLink(BJotlet& jotlet) {
  BEdit* edit = jotlet.Editor();
  if (edit == nullptr || OpenOrMakeLink(*edit) || edit->IsReadOnly()) return;
  const Text id = jotlet.StoredRecord().id;
  const auto address = BTextDlg(tools_.resources, IDS_EDIT_LINK, IDS_LABEL_ADDRESS, {}).Ask(jotlet.Handle());
  BJotlet* note = tools_.notes.Find(id);
  if (!address || address->empty() || note == nullptr || note->Editor() == nullptr) return;
  const Text link = LinkTarget(*address).empty() ? LinkFromText(*address) : *address;
  if (link.empty()) return Tell(note->Handle(), tools_.resources, IDS_NO_LINK, *address);
  BEdit& text = *note->Editor();
  const Text words = text.TextBetween(text.Selection());
  InsertText(text, words.empty() ? link : LinkWords(words, link));
}

void NoteCommands::ChooseSkin(BJotlet& jotlet) { tools_.skins.Choose(jotlet); }

void NoteCommands::Save(BJotlet&) {
  tools_.saving.SaveIfDirty();
  tools_.saving.SaveOptionsIfDirty();
}

bool NoteCommands::SaveToFile(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  const Text extension(jotlet.Content().Extension());
  const Text path = ChooseFileToSave(jotlet.Handle(), tools_.resources.String(FilterOf(extension)), extension,
                                     FileNameOfTitle(jotlet.TitleShown()));
  BJotlet* note = tools_.notes.Find(id);
  if (path.empty() || note == nullptr) return false;
  const FileStatus written = tools_.contents.WriteCopy(note->StoredRecord(), path);
  if (!written) Tell(note->Handle(), tools_.resources, IDS_NOT_WRITTEN, path + u"\n\n" + written.reason);
  return written.ok;
}

void NoteCommands::CopyToFile(BJotlet& jotlet) { SaveToFile(jotlet); }

// Closed, not deleted: the file may not hold all that the note was.
void NoteCommands::MoveToFile(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  if (SaveToFile(jotlet)) tools_.desk.Close(id, Reason::kMovedToFile);
}

void NoteCommands::ImportFromFile(BJotlet& jotlet) {
  const Text path = ChooseFileToOpen(jotlet.Handle(), tools_.resources.String(IDS_FILTER_IMPORT));
  if (!path.empty()) tools_.program.ImportFile(path);
}

void NoteCommands::OpenLog(BJotlet& jotlet) { OpenDocument(tools_, jotlet, kActivityLogName); }
void NoteCommands::OpenIni(BJotlet& jotlet) { OpenDocument(tools_, jotlet, kDataFileName); }

void NoteCommands::Solo(BJotlet& jotlet) { tools_.notes.HideOthers(jotlet); }

void NoteCommands::Properties(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  BPropertiesDlg dialog(tools_.resources, jotlet.Record(),
                        [this](std::int32_t utc) { return ShownTime(tools_.notes.ToLocal(utc)); });
  if (!dialog.Edit(jotlet.Handle())) return;
  BJotlet* note = tools_.notes.Find(id);
  if (note != nullptr) note->ApplyProperties(dialog.Record());
}

}  // namespace jotlets

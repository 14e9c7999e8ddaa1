// The menus of a note: what stands in them beside its commands, and the choice of its paper.
#include "action/action_table.h"
#include "action/shortcuts.h"
#include "app/win/commands/note_commands.h"
#include "desk/win/note_links.h"
#include "editor/editor_keys.h"
#include "editor/font_history.h"
#include "editor/web_search.h"
#include "editor/win/edit_style.h"
#include "editor/win/edit_text.h"
#include "editor/win/style_sample.h"
#include "note/papers.h"
#include "note/win/colour_menu.h"
#include "picture/win/picture_clipboard.h"
#include "res/resource.h"
#include "ui/system_choosers.h"

namespace jotlets {
namespace {

constexpr std::size_t kHighlights = 6;  // with none of them, which is the first

void AddWebSearch(const NoteCommandTools& tools, const BEdit& edit, MenuExtras& extras) {
  constexpr LONG kLongestWords = 1000;
  const Text& address = tools.options.google.second;
  CHARRANGE selection = edit.Selection();
  if (address.empty() || selection.cpMin == selection.cpMax) return;
  selection.cpMax = std::min(selection.cpMax, selection.cpMin + kLongestWords);
  const Text words = edit.TextBetween(selection);
  const Text page = WebSearchAddress(address, words);
  const auto search = [&tools, page](BJotlet& note) {
    FollowLink(note.Handle(), tools.resources, tools.log, page, false);
  };
  extras.entries.push_back({MenuPart::kWebSearch,
                            ReplaceAll(tools.resources.String(IDS_WEB_SEARCH), u"%s", ShortWords(words)),
                            search, !page.empty()});
}

void AddStacks(const NoteCommandTools& tools, const JotletData& record, MenuExtras& extras) {
  for (const StackRecord& stack : tools.desk.Lists().stacks) {
    // An ampersand of the name is no mnemonic.
    extras.entries.push_back(
        {MenuPart::kStacks, ReplaceAll(OneLine(stack.title), u"&", u"&&"),
         [&tools, number = stack.number](BJotlet& note) { tools.stacks.Add(number, note); }, true,
         stack.number == record.stack});
  }
}

ColourEntry HighlightRow(const NoteCommandTools& tools, const ActionFacts& facts) {
  ColourEntry row{.part = MenuPart::kHighlights, .caption = tools.resources.String(IDS_HIGHLIGHTS)};
  const HighlightColours colours = tools.notes.Highlights();
  // The colours first, none of them last.
  for (std::size_t i = 1; i <= kHighlights; ++i) {
    const auto code = static_cast<ActionCode>(kActionHiliteNone + static_cast<std::int32_t>(i % kHighlights));
    if (StateOf(code, facts).checked && i < kHighlights) row.current = row.swatches.size();
    const bool none = i == kHighlights;
    row.swatches.push_back({none ? Swatch::Kind::kNothing : Swatch::Kind::kColour,
                            none ? Colour() : colours[i - 1],
                            tools.resources.String(IDS_ACTION + static_cast<UINT>(code))});
  }
  row.enabled = StateOf(kActionHiliteNone, facts).enabled;
  row.run = [](BJotlet& note, std::size_t index) {
    const auto step = static_cast<std::int32_t>((index + 1) % kHighlights);
    note.DoAction(static_cast<ActionCode>(kActionHiliteNone + step), {});
  };
  return row;
}

// What is done to text most often, one click away.
ColourEntry TextToolRow(const NoteCommandTools& tools, const ActionFacts& facts) {
  static constexpr std::array kTools = {kActionBold,          kActionItalic, kActionUnderline,
                                        kActionStrikethrough, kActionLarger, kActionSmaller,
                                        kActionLeft,          kActionCenter, kActionRight};
  ColourEntry row{.part = MenuPart::kTextTools,
                  .caption = ReplaceAll(tools.resources.String(IDS_MENU_FORMAT), u"&", u"")};
  for (const ActionCode code : kTools) {
    const Text name = ReplaceAll(tools.resources.String(IDS_ACTION + static_cast<UINT>(code)), u"&", u"");
    row.swatches.push_back({Swatch::Kind::kSign, {}, name, RowOf(code).icon, StateOf(code, facts).checked});
  }
  row.enabled = StateOf(kActionBold, facts).enabled;
  row.run = [](BJotlet& note, std::size_t index) { note.DoAction(kTools[index], {}); };
  return row;
}

void AddPictureSteps(const NoteCommandTools& tools, const ActionFacts& facts, MenuExtras& extras) {
  const auto add = [&](MenuPart part, ActionCode action) {
    extras.entries.push_back({part, tools.resources.Key(ShortcutText(action)),
                              [action](BJotlet& note) { note.DoAction(action, {}); },
                              StateOf(action, facts).enabled});
  };
  add(MenuPart::kPictureUndo, kActionUndo);
  add(MenuPart::kPictureRedo, kActionRedo);
}

void TurnGhost(const NoteCommandTools& tools, BJotlet& jotlet) {
  const bool on = !jotlet.StoredRecord().ghost;
  for (BJotlet* note : tools.notes.GroupOf(jotlet)) note->SetGhost(on);
}

}  // namespace

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
  facts.styles = StyleNames(tools_.options);
  if (const BEdit* edit = jotlet.Editor()) facts.edit = edit->Facts(tools_.notes.Highlights());
  if (record.IsImage()) {
    const PictureFacts drawing = jotlet.Drawing();
    facts.edit.canUndo = drawing.canUndo;
    facts.edit.canRedo = drawing.canRedo;
    facts.edit.hasSelection = drawing.hasSelection;
    facts.edit.canPaste = HasClipboardPicture();
    facts.tool = drawing.tool;
    facts.zoom = drawing.zoom;
    facts.penWidth = tools_.options.penWidth;
  }
  facts.skinFixed = tools_.skins.IsFixedByPolicy();
  facts.inStack = tools_.desk.Lists().FindStack(record.stack) != nullptr;
  return facts;
}

void NoteCommands::JotletMenu(BJotlet& jotlet) { ShowMenu(jotlet, NoteMenu::kJotletMenu); }
void NoteCommands::TextMenu(BJotlet& jotlet) { ShowMenu(jotlet, NoteMenu::kTextMenu); }

void NoteCommands::ShowMenu(BJotlet& jotlet, NoteMenu which) {
  if (jotlet.IsSounding()) return sleep_.Snooze(jotlet);
  const Text id = jotlet.StoredRecord().id;
  const ActionMenu menu(tools_.resources, which, FactsOf(jotlet), ExtrasOf(jotlet));
  // The menu runs a message loop of its own, in which anything may happen to the note.
  const auto run = menu.Choose(jotlet.Handle(), jotlet.MenuPlace(which == NoteMenu::kTextMenu));
  BJotlet* note = tools_.notes.Find(id);
  if (note != nullptr && run) run(*note);
}

// Entries that only some notes have, that depend on which stacks there are, or that others have added.
MenuExtras NoteCommands::ExtrasOf(const BJotlet& jotlet) {
  const JotletData& record = jotlet.StoredRecord();
  const bool inStack = tools_.desk.Lists().FindStack(record.stack) != nullptr;
  MenuExtras extras;
  extras.colours = {PapersOf(record), HighlightRow(tools_, FactsOf(jotlet)),
                    TextToolRow(tools_, FactsOf(jotlet))};
  extras.entries = {
      {MenuPart::kGhost, {}, [this](BJotlet& note) { TurnGhost(tools_, note); }, true, record.ghost},
      {MenuPart::kClearAlarm, {}, [this](BJotlet& note) { sleep_.ClearAlarm(note); }, record.alarm > 0},
      {MenuPart::kFile, {}, [this](BJotlet& note) { ShowFile(note); }},
      {MenuPart::kNewStack,
       {},
       [this](BJotlet& note) {
         const BStackDlg* stack = tools_.stacks.Create(note);
         if (stack != nullptr) tools_.stacks.Add(stack->Number(), note);
       }},
      {MenuPart::kLeaveStack, {}, [this](BJotlet& note) { tools_.stacks.RemoveMember(note); }, inStack}};
  for (int i = 0; i < kPresets; ++i) {
    const auto preset = static_cast<Preset>(i);
    const auto time = sleep_.ShownPreset(preset);
    const auto part = static_cast<MenuPart>(static_cast<int>(MenuPart::kPreset) + i);
    // An evening that is over is none to wait for.
    if (time)
      extras.entries.push_back(
          {part, *time, [this, preset](BJotlet& note) { sleep_.SleepUntil(note, preset); }});
  }
  if (record.IsAttached())
    extras.entries.push_back({MenuPart::kAttachment, {}, [this](BJotlet& note) { Unattach(note); }});
  AddPictureSteps(tools_, FactsOf(jotlet), extras);
  AddStacks(tools_, record, extras);
  tools_.store.AddCategories(extras);
  AddTextExtras(jotlet, extras);
  for (const CustomCommand& command : tools_.menus.ofNotes.List()) {
    extras.entries.push_back(
        {MenuPart::kOfOthers, command.caption, [this, word = command.word](BJotlet& note) {
           tools_.events.Send({EventKind::kNoteCommand, Reason::kNotGiven, {note.StoredRecord().id}, word});
         }});
  }
  return extras;
}

// Of the text's own menu: what the editor's keys do, fonts of late and the web.
void NoteCommands::AddTextExtras(const BJotlet& jotlet, MenuExtras& extras) {
  if (jotlet.Editor() == nullptr) return;
  const BEdit& edit = *jotlet.Editor();
  const auto add = [&](MenuPart part, EditorKey key, bool enabled, bool checked = false) {
    extras.entries.push_back({part, tools_.resources.Key(ShortcutText(KeyOf(key))),
                              [key](BJotlet& note) { note.Editor()->Do(key); }, enabled, checked});
  };
  add(MenuPart::kPastePlain, EditorKey::kPastePlain, edit.CanPaste());
  if (tools_.options.typingAids)
    add(MenuPart::kCheckList, EditorKey::kCheckList, !edit.IsReadOnly(), IsInCheckList(edit));
  for (const Text& face : RecentFonts(tools_.options.fontMru)) {
    extras.entries.push_back({MenuPart::kFonts, ReplaceAll(face, u"&", u"&&"),
                              [this, face](BJotlet& note) { SetFace(note, face); }, !edit.IsReadOnly()});
  }
  AddWebSearch(tools_, edit, extras);
  const auto dpi = static_cast<std::int32_t>(GetDpiForWindow(jotlet.Handle()));
  for (std::size_t number = 0; number < kTextStyles; ++number)
    extras.styles.push_back(
        MakeStyleSample(SavedTextStyle(tools_.options, number), dpi, tools_.resources.Look()));
}

void NoteCommands::SetFace(BJotlet& jotlet, const Text& face) {
  SetFontFace(*jotlet.Editor(), face);
  RememberFont(face);
}

void NoteCommands::RememberFont(const Text& face) {
  const Text fonts = WithRecentFont(tools_.options.fontMru, face);
  if (fonts == tools_.options.fontMru) return;
  tools_.options.fontMru = fonts;
  tools_.saving.SetOptionsDirty();
}

ColourEntry NoteCommands::PapersOf(const JotletData& record) {
  ColourEntry papers{.part = MenuPart::kPapers, .caption = tools_.resources.String(IDS_PAPERS)};
  papers.swatches = PaperSwatches(tools_.resources);
  papers.current = PaperOf(record.colour);
  papers.run = [this](BJotlet& note, std::size_t index) {
    if (index < kPapers.size()) return SetColour(note, kPapers[index]);
    const Text id = note.StoredRecord().id;
    const auto colour = ChooseSystemColour(note.Handle(), note.StoredRecord().colour);
    BJotlet* still = tools_.notes.Find(id);
    if (colour && still != nullptr) SetColour(*still, *colour);
  };
  return papers;
}

void NoteCommands::Snooze(const Text& id) {
  if (BJotlet* note = tools_.notes.Find(id)) sleep_.SnoozeNow(*note);
}

void NoteCommands::Unattach(BJotlet& jotlet) {
  for (BJotlet* note : tools_.notes.GroupOf(jotlet)) note->SetAttachment({});
}

void NoteCommands::ChooseColour(BJotlet& jotlet) {
  const Text id = jotlet.StoredRecord().id;
  const auto colour = jotlets::ChooseColour(tools_.resources, tools_.options, jotlet.Handle(),
                                            jotlet.MenuPlace(false), jotlet.StoredRecord().colour);
  BJotlet* note = tools_.notes.Find(id);
  if (colour && note != nullptr) SetColour(*note, *colour);
}

void NoteCommands::SetColour(BJotlet& jotlet, Colour colour) {
  RememberColour(colour);
  for (BJotlet* note : tools_.notes.GroupOf(jotlet)) note->SetColour(colour);
}

void NoteCommands::RememberColour(Colour colour) {
  if (jotlets::RememberColour(tools_.options, colour)) tools_.saving.SetOptionsDirty();
}

}  // namespace jotlets

#include "app/win/commands/previewed_notes.h"

#include "action/action_state.h"
#include "action/action_table.h"
#include "action/shortcuts.h"
#include "base/win/pressed_key.h"
#include "base/win/wide.h"
#include "data/rtf_bytes.h"
#include "desk/win/note_links.h"
#include "note/win/edit_actions.h"
#include "picture/picture.h"
#include "res/resource.h"
#include "ui/drawn_menu.h"
#include "ui/popup_menu.h"

namespace jotlets {
namespace {

// As groups.
constexpr ActionCode kMenu[] = {kActionUndo,   kActionRedo,      kActionNone, kActionCut,
                                kActionCopy,   kActionPaste,     kActionNone, kActionBold,
                                kActionItalic, kActionUnderline, kActionNone, kActionSelectAll};

}  // namespace

std::optional<PreviewedText> PreviewedNotes::TextOf(const Text& id) {
  const std::optional<JotletData> record = desk_.RecordOf(id);
  if (!record || record->IsImage()) return std::nullopt;
  if (notes_.Find(id) != nullptr) {
    if (Text rtf = contents_.RichTextOf(*record); !rtf.empty()) return {{RtfBytes(rtf), record->readOnly}};
  }
  // What cannot be read now may be there in a moment, and must not be written over.
  FileContent file = contents_.ReadText(*record);
  const bool read = file.state == FileContent::State::kRead;
  return {{std::move(file.bytes), record->readOnly || !read}};
}

void PreviewedNotes::AskPicture(const Text& id, Size largest, std::function<void(const Picture&)> seen) {
  const std::optional<JotletData> record = desk_.RecordOf(id);
  if (!record) return;
  const auto read = [&files = files_, path = desk_.Folder() + ContentPath(*record),
                     largest](const Cancelled&) {
    if (files.Size(path) > kLargestPictureFile) return Picture();
    auto picture = DecodePng(files.Read(path).bytes);
    return picture ? Shrunk(*std::move(picture), largest) : Picture();
  };
  jobs_.Start(u"preview", read, [seen](const Picture& made) {
    if (!made.pixels.empty()) seen(made);
  });
}

bool PreviewedNotes::ChangeText(const Text& id, const std::string& rtf) {
  const std::optional<JotletData> record = desk_.RecordOf(id);
  if (!record || record->readOnly) return false;
  BJotlet* jotlet = notes_.Find(id);
  return jotlet == nullptr ? desk_.ChangeText(id, rtf) : jotlet->Content().SetRichText(FromAscii(rtf));
}

bool PreviewedNotes::ServeKey(BEdit& edit, WPARAM key) {
  const ActionCode action = ActionFromKey(PressedShortcut(key));
  return action != kActionNone && DoEditAction(edit, action, notes_.EditingContext());
}

// The window may be gone when the menu is.
void PreviewedNotes::ShowMenu(BEdit& edit, Point at) {
  ActionFacts facts;
  facts.readOnly = edit.IsReadOnly();
  facts.edit = edit.Facts(notes_.Highlights());
  const UniqueMenu menu(CreatePopupMenu());
  for (const ActionCode action : kMenu) {
    if (action == kActionNone) {
      AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
      continue;
    }
    const ActionState state = StateOf(action, facts);
    const UINT flags = (state.enabled ? MF_ENABLED : MF_GRAYED) | (state.checked ? MF_CHECKED : MF_UNCHECKED);
    const Text words = resources_.String(IDS_ACTION + static_cast<UINT>(action)) + u"\t" +
                       resources_.Key(ShortcutText(action));
    AppendMenuW(menu.get(), flags, static_cast<UINT_PTR>(action), Wide(words));
    SetLastMenuIcon(menu.get(), RowOf(action).icon);
  }
  const HWND text = edit.Handle();
  const UINT chosen = ChooseFromMenu(resources_.Look(), menu.get(), at, text);
  if (chosen > 0 && edit.Handle() == text)
    DoEditAction(edit, static_cast<ActionCode>(chosen), notes_.EditingContext());
}

void PreviewedNotes::OpenLink(HWND window, const Text& id, const Text& target) {
  const std::optional<JotletData> record = desk_.RecordOf(id);
  FollowLink(window, resources_, log_, target, record && !record->source.empty());
}

}  // namespace jotlets

// The commands of picture notes: what the options, the clipboard and files have to do with them.
#include "action/action_table.h"
#include "app/win/commands/note_commands.h"
#include "picture/picture.h"
#include "res/resource.h"
#include "skin/win/clipboard.h"
#include "ui/system_choosers.h"
#include "ui/text_dialog.h"
#include "ui/user_messages.h"

namespace jotlets {

bool NoteCommands::DoInPicture(const Text& id, ActionCode action) {
  BJotlet* jotlet = tools_.notes.Find(id);
  if (jotlet == nullptr || !jotlet->StoredRecord().IsImage()) return false;
  const NoteAction& row = RowOf(action);
  const ContentFile file{
      [this, id] { return tools_.contents.BytesOf(*tools_.desk.Lists().desktop.Find(id)); }, {}};
  if (row.sets.what == ActionSets::kPenWidth) return SetPen(row.sets.value, PenColour()), true;
  switch (action) {
    case kActionPenColour: {
      const auto colour = ChooseSystemColour(jotlet->Handle(), PenColour());
      if (colour) SetPen(tools_.options.penWidth, *colour);
      return true;
    }
    case kActionPaste:
    case kActionPasteIntoImage: {
      const auto picture = DecodePng(ClipboardPicture(jotlet->Handle()));
      if (picture) jotlet->PutPicture(*picture, false, file);
      return picture.has_value();
    }
    case kActionPenLoadImage: return ChoosePicture(id), true;
    case kActionCopy: return jotlet->CopyContent(jotlet->Handle(), true, file), true;
    default: return jotlet->DoInPicture(action, file);
  }
}

ContentFile NoteCommands::FileOf(const Text& id) const {
  const auto bytes = [this, id] {
    const JotletData* record = tools_.desk.Lists().desktop.Find(id);
    return record == nullptr ? std::string() : tools_.contents.BytesOf(*record);
  };
  return {bytes, {}};
}

void NoteCommands::ChoosePicture(const Text& id) {
  const Text path =
      ChooseFileToOpen(tools_.notes.Find(id)->Handle(), tools_.resources.String(IDS_FILTER_PICTURES));
  if (!path.empty()) LoadPicture(id, path);
}

void NoteCommands::LoadPicture(const Text& id, const Text& path) {
  BJotlet* jotlet = tools_.notes.Find(id);
  if (jotlet == nullptr || jotlet->StoredRecord().readOnly) return;
  const auto picture = DecodePng(tools_.contents.ReadPicture(path));
  if (!picture) return Tell(jotlet->Handle(), tools_.resources, IDS_NO_PICTURE, path);
  jotlet->PutPicture(*picture, true, FileOf(id));
}

Colour NoteCommands::PenColour() const {
  const auto& own = tools_.options.penColour;
  return {static_cast<std::uint8_t>(own[0]), static_cast<std::uint8_t>(own[1]),
          static_cast<std::uint8_t>(own[2])};
}

void NoteCommands::SetPen(std::int32_t width, Colour colour) {
  tools_.options.penWidth = width;
  tools_.options.penColour = {colour.r, colour.g, colour.b};
  tools_.saving.SetOptionsDirty();
}

void NoteCommands::OnPictureAnswer(const Text& id, const PictureAnswer& answer) {
  if (!answer.load.empty()) return LoadPicture(id, answer.load);
  if (answer.picked) SetPen(tools_.options.penWidth, *answer.picked);
  BJotlet* jotlet = tools_.notes.Find(id);
  if (!answer.write || jotlet == nullptr) return;
  DrawnObject object = *answer.write;
  const auto words =
      BTextDlg(tools_.resources, IDS_PICTURE_TEXT, IDS_PICTURE_TEXT_LABEL, object.text).Ask(jotlet->Handle());
  jotlet = tools_.notes.Find(id);
  if (!words || jotlet == nullptr) return;
  object.text = *words;
  jotlet->PutTextInPicture(object);
}

}  // namespace jotlets

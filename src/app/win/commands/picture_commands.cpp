#include "app/win/commands/picture_commands.h"

#include "action/action_table.h"
#include "picture/picture.h"
#include "picture/resizing.h"
#include "res/resource.h"
#include "skin/win/clipboard.h"
#include "ui/system_choosers.h"
#include "ui/text_dialog.h"
#include "ui/user_messages.h"

namespace jotlets {

bool PictureCommands::Do(const Text& id, ActionCode action) {
  BJotlet* jotlet = notes_.Find(id);
  if (jotlet == nullptr || !jotlet->StoredRecord().IsImage()) return false;
  const NoteAction& row = RowOf(action);
  if (row.by != ActionBy::kPicture && row.by != ActionBy::kEditor) return false;
  const ContentFile file = FileOf(id);
  if (row.sets.what == ActionSets::kPenWidth) return SetPen(row.sets.value, Pen()), true;
  switch (action) {
    case kActionPenColour: {
      const auto colour = ChooseSystemColour(jotlet->Handle(), Pen());
      if (colour) SetPen(options_.penWidth, *colour);
      return true;
    }
    case kActionPaste:
    case kActionPasteIntoImage: return Paste(*jotlet, file), true;
    case kActionPenLoadImage: return Choose(id), true;
    case kActionSizeImageJotlet: return AskSize(id), true;
    case kActionCopy: return jotlet->CopyContent(jotlet->Handle(), true, file), true;
    default: return jotlet->DoInPicture(action, file);
  }
}

ContentFile PictureCommands::FileOf(const Text& id) const {
  const auto bytes = [this, id] {
    const JotletData* record = desk_.Lists().desktop.Find(id);
    return record == nullptr ? std::string() : contents_.BytesOf(*record);
  };
  return {bytes, {}};
}

void PictureCommands::Paste(BJotlet& jotlet, const ContentFile& file) {
  if (const auto picture = DecodePng(ClipboardPicture(jotlet.Handle())))
    jotlet.PutPicture(*picture, false, file);
}

void PictureCommands::Choose(const Text& id) {
  const Text path = ChooseFileToOpen(notes_.Find(id)->Handle(), resources_.String(IDS_FILTER_PICTURES));
  if (!path.empty()) Load(id, path);
}

void PictureCommands::Load(const Text& id, const Text& path) {
  BJotlet* jotlet = notes_.Find(id);
  if (jotlet == nullptr || jotlet->StoredRecord().readOnly) return;
  const auto picture = DecodePng(contents_.ReadPicture(path));
  if (!picture) return Tell(jotlet->Handle(), resources_, IDS_NO_PICTURE, path);
  jotlet->PutPicture(*picture, true, FileOf(id));
}

// "800 x 600"; of one number alone the other follows.
void PictureCommands::AskSize(const Text& id) {
  BJotlet* jotlet = notes_.Find(id);
  const auto now = jotlet->PictureSize(FileOf(id));
  if (!now) return;
  const Text shown = IntText(now->width) + u" x " + IntText(now->height);
  const auto words =
      BTextDlg(resources_, IDS_PICTURE_SIZE, IDS_PICTURE_SIZE_LABEL, shown).Ask(jotlet->Handle());
  jotlet = notes_.Find(id);
  if (!words || jotlet == nullptr) return;
  const std::optional<Size> wanted = PictureSizeFrom(*words, *now);
  if (!wanted) return Tell(jotlet->Handle(), resources_, IDS_NO_PICTURE_SIZE, *words);
  jotlet->ResizePicture(*wanted);
}

Colour PictureCommands::Pen() const {
  const auto channel = [this](std::size_t at) { return static_cast<std::uint8_t>(options_.penColour[at]); };
  return {channel(0), channel(1), channel(2)};
}

void PictureCommands::SetPen(std::int32_t width, Colour colour) {
  options_.penWidth = width;
  options_.penColour = {colour.r, colour.g, colour.b};
  saving_.SetOptionsDirty();
}

void PictureCommands::OnAnswer(const Text& id, const PictureAnswer& answer) {
  if (!answer.load.empty()) return Load(id, answer.load);
  if (answer.picked) SetPen(options_.penWidth, *answer.picked);
  BJotlet* jotlet = notes_.Find(id);
  if (!answer.write || jotlet == nullptr) return;
  DrawnObject object = *answer.write;
  const auto words =
      BTextDlg(resources_, IDS_PICTURE_TEXT, IDS_PICTURE_TEXT_LABEL, object.text).Ask(jotlet->Handle());
  jotlet = notes_.Find(id);
  if (!words || jotlet == nullptr) return;
  object.text = *words;
  jotlet->PutTextInPicture(object);
}

}  // namespace jotlets

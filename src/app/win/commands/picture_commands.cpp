#include "app/win/commands/picture_commands.h"

#include <algorithm>

#include "action/action_table.h"
#include "note/win/effect_dialog.h"
#include "note/win/picture_size_dialog.h"
#include "note/win/text_picture.h"
#include "picture/picture.h"
#include "picture/win/picture_clipboard.h"
#include "res/picture_numbers.h"
#include "res/resource.h"
#include "ui/system_choosers.h"
#include "ui/text_dialog.h"
#include "ui/user_messages.h"

namespace jotlets {

bool PictureCommands::Do(const Text& id, ActionCode action) {
  BJotlet* jotlet = notes_.Find(id);
  if (jotlet == nullptr) return false;
  if (action == kActionConvertToImage) return Convert(*jotlet), true;
  if (!jotlet->StoredRecord().IsImage()) return false;
  const NoteAction& row = RowOf(action);
  if (row.by != ActionBy::kPicture && row.by != ActionBy::kEditor) return false;
  if (row.sets.what == ActionSets::kZoom || action == kActionZoomIn || action == kActionZoomOut) {
    if (!jotlet->HasAllPixels() && action != kActionZoomFit)
      WorkOn(*jotlet, [](PictureWork&, const ToolSettings&) {});
    return jotlet->ZoomPicture(action);
  }
  // Until what was begun is there, nothing changes the picture but giving it up.
  const bool works = jotlet->Drawn() != nullptr && jotlet->Drawn()->IsWorking();
  if (works && action == kActionUndo) {
    jobs_.Cancel(id);
    WorkOn(*jotlet, [](PictureWork& picture, const ToolSettings&) { picture.SetWorking({}); });
    return true;
  }
  if (works && row.onText != ActionOnText::kKeeps && !ToolOf(action)) return true;
  if (const auto effect = EffectOf(action)) {
    HasStrength(effect->kind) ? AskEffect(id, action, *effect) : BeginEffect(*jotlet, *effect, false);
    return true;
  }
  if (row.sets.what == ActionSets::kPenWidth) return SetPen(*jotlet, row.sets.value, Pen()), true;
  switch (action) {
    case kActionPenColour: {
      const auto colour = ChooseSystemColour(jotlet->Handle(), Pen());
      jotlet = notes_.Find(id);
      if (colour && jotlet != nullptr) SetPen(*jotlet, options_.penWidth, *colour);
      return true;
    }
    case kActionPaste:
    case kActionPasteIntoImage: return Paste(*jotlet), true;
    case kActionPenLoadImage: return Choose(id), true;
    case kActionSizeImageJotlet: return AskSize(id), true;
    case kActionCopy: return Copy(*jotlet), true;
    case kActionCut: return Cut(*jotlet), true;
    default: break;
  }
  bool done = false;
  WorkOn(*jotlet,
         [&](PictureWork& picture, const ToolSettings& settings) { done = picture.Do(action, settings); });
  return done;
}

void PictureCommands::WorkOn(BJotlet& jotlet, const PictureTask& work) {
  if (jotlet.WorkOnPicture(FileOf(jotlet.StoredRecord().id), work)) return;
  Tell(jotlet.Handle(), resources_, IDS_NO_PICTURE, desk_.Folder() + ContentPath(jotlet.StoredRecord()));
}

ContentFile PictureCommands::FileOf(const Text& id) const {
  const auto read = [this, id](std::string (NoteContents::*part)(const JotletData&) const) {
    const JotletData* record = desk_.Lists().desktop.Find(id);
    return record == nullptr ? std::string() : (contents_.*part)(*record);
  };
  return {
      [read] { return read(&NoteContents::BytesOf); }, {}, [read] { return read(&NoteContents::ObjectsOf); }};
}

void PictureCommands::Paste(BJotlet& jotlet) {
  if (const auto pasted = DecodePng(ClipboardPicture(jotlet.Handle())))
    WorkOn(jotlet, [&](PictureWork& picture, const ToolSettings&) { picture.Paste(*pasted); });
}

void PictureCommands::Copy(BJotlet& jotlet) {
  if (!jotlet.Drawing().hasSelection)
    return jotlet.CopyContent(jotlet.Handle(), true, FileOf(jotlet.StoredRecord().id));
  WorkOn(jotlet, [&](PictureWork& picture, const ToolSettings&) {
    PutPictureOnClipboard(jotlet.Handle(), picture.SelectedPng());
  });
}

void PictureCommands::Cut(BJotlet& jotlet) {
  WorkOn(jotlet, [&](PictureWork& picture, const ToolSettings& settings) {
    if (PutPictureOnClipboard(jotlet.Handle(), picture.SelectedPng()))
      picture.Do(kActionPenClearSel, settings);
  });
}

void PictureCommands::Choose(const Text& id) {
  const Text path = ChooseFileToOpen(notes_.Find(id)->Handle(), resources_.String(IDS_FILTER_PICTURES));
  if (!path.empty()) Load(id, path);
}

void PictureCommands::Load(const Text& id, const Text& path) {
  BJotlet* jotlet = notes_.Find(id);
  if (jotlet == nullptr || jotlet->StoredRecord().readOnly) return;
  auto loaded = DecodePng(contents_.ReadPicture(path));
  if (!loaded) return Tell(jotlet->Handle(), resources_, IDS_NO_PICTURE, path);
  WorkOn(*jotlet, [&](PictureWork& picture, const ToolSettings&) { picture.Load(*std::move(loaded)); });
}

void PictureCommands::AskEffect(const Text& id, ActionCode action, Effect effect) {
  const Text name = resources_.String(IDS_ACTION + static_cast<UINT>(action));
  const Text title = ReplaceAll(ReplaceAll(name, u"&", u""), u"...", u"");
  BJotlet* jotlet = notes_.Find(id);
  BEffectDlg dialog(resources_, title, effect.strength, [&](std::int32_t strength) {
    effect.strength = strength;
    if (BJotlet* note = notes_.Find(id)) BeginEffect(*note, effect, true);
  });
  const auto chosen = dialog.Choose(jotlet->Handle());
  jotlet = notes_.Find(id);
  if (jotlet == nullptr) return;
  jobs_.Cancel(id);
  WorkOn(*jotlet, [](PictureWork& picture, const ToolSettings&) {
    picture.SetWorking({});
    picture.EndPreview();
  });
  if (!chosen) return;
  effect.strength = *chosen;
  BeginEffect(*jotlet, effect, false);
}

// Of large pictures a copy is changed elsewhere.
void PictureCommands::BeginEffect(BJotlet& jotlet, const Effect& effect, bool preview) {
  WorkOn(jotlet, [&](PictureWork& picture, const ToolSettings&) {
    const bool turns = effect.kind == EffectKind::kMirror || effect.kind == EffectKind::kFlip;
    if (turns && !preview) return picture.Apply(effect);
    const auto pixels = std::make_shared<Picture>(picture.PixelsForEffect());
    const std::uint64_t version = picture.Version();
    const auto change = [pixels, effect](const Cancelled& cancelled) {
      const bool done = ApplyEffect(*pixels, WholeOf(pixels->size), effect, cancelled);
      return done ? std::move(*pixels) : Picture();
    };
    const auto put = [preview, version](PictureWork& work, const Picture& made) {
      preview ? work.Preview(made) : work.PutEffect(made, version);
    };
    if (std::int64_t{pixels->size.width} * pixels->size.height <= kMaxPixelsAtOnce)
      return put(picture, change({}));
    picture.SetWorking(resources_.String(IDS_PICTURE_WORKING),
                       static_cast<std::int32_t>(GetDpiForWindow(jotlet.Handle())));
    const Text id = jotlet.StoredRecord().id;
    jobs_.Start(id, change, [this, id, put](const Picture& made) {
      BJotlet* note = notes_.Find(id);
      if (note == nullptr) return;
      WorkOn(*note, [&](PictureWork& work, const ToolSettings&) {
        work.SetWorking({});
        if (!made.pixels.empty()) put(work, made);
      });
    });
  });
}

bool PictureCommands::MakeFiles(const Text& id) {
  BJotlet* jotlet = notes_.Find(id);
  PictureWork* picture = jotlet == nullptr ? nullptr : jotlet->Drawn();
  if (picture == nullptr || !picture->WantsFiles()) return false;
  const std::uint64_t version = picture->Version();
  if (!picture->BeginFiles()) return true;
  const auto parts = std::make_shared<PictureParts>(picture->Parts());
  const auto files = std::make_shared<PictureFiles>();
  const auto make = [parts, files](const Cancelled&) {
    *files = FilesOf(*parts, SystemLetters());
    return Picture();
  };
  // Beside an effect that is being worked out for the same note.
  jobs_.Start(id + u"*", make, [this, id, version, files](const Picture&) {
    BJotlet* note = notes_.Find(id);
    PictureWork* work = note == nullptr ? nullptr : note->Drawn();
    if (work != nullptr) work->PutFiles(std::move(*files), version);
    desk_.Changed(id);
  });
  return true;
}

// The text stays among the closed notes, from where the offer brings it back.
void PictureCommands::Convert(BJotlet& jotlet) {
  const auto fail = [&] { Tell(jotlet.Handle(), resources_, IDS_NOT_CONVERTED, {}); };
  // What is shown of a very long text is its beginning.
  if (jotlet.Editor() == nullptr || jotlet.Editor()->ShowsBeginning()) return fail();
  const std::optional<Picture> picture = PictureOfText(*jotlet.Editor());
  std::string png = picture ? EncodePng(*picture) : std::string();
  JotletData source = jotlet.Record();
  source.title = jotlet.TitleShown();
  if (png.empty() || !desk_.SaveContent(source.id)) return fail();
  const Text made = desk_.CreatePicture(source, std::move(png));
  if (made.empty()) return fail();
  // While the text is still there: with the last window that has it the keyboard goes to another program.
  desk_.Show(made, Showing::kWithFocus);
  Rect below = jotlet.Bounds();
  below.top = below.bottom;
  if (undo_.Close(source.id, below, resources_.String(IDS_UNDO_CONVERTED))) return;
  desk_.Delete(made, Reason::kDeleted);
  fail();
}

void PictureCommands::AskSize(const Text& id) {
  BJotlet* jotlet = notes_.Find(id);
  std::optional<Size> now;
  WorkOn(*jotlet, [&](PictureWork& picture, const ToolSettings&) { now = picture.PixelSize(); });
  if (!now) return;
  const SizeUnit unit = options_.sizeType == 0 ? SizeUnit::kPercent : SizeUnit::kPixels;
  BPictureSizeDlg dialog(resources_, PictureSizing(*now, unit, options_.keepAspect != 0));
  const bool chosen = dialog.Edit(jotlet->Handle());
  jotlet = notes_.Find(id);
  const PictureSizing& sizing = dialog.Chosen();
  const std::optional<Size> wanted = sizing.Wanted();
  if (!chosen || jotlet == nullptr || !wanted) return;
  options_.sizeType = sizing.Unit() == SizeUnit::kPixels ? 1 : 0;
  options_.keepAspect = sizing.KeepsAspect() ? 1 : 0;
  saving_.SetOptionsDirty();
  WorkOn(*jotlet, [&](PictureWork& picture, const ToolSettings&) { picture.Resize(*wanted); });
}

Colour PictureCommands::Pen() const {
  const auto channel = [this](std::size_t at) { return static_cast<std::uint8_t>(options_.penColour[at]); };
  return {channel(0), channel(1), channel(2)};
}

void PictureCommands::SetPen(BJotlet& jotlet, std::int32_t width, Colour colour) {
  options_.penWidth = width;
  options_.penColour = {colour.r, colour.g, colour.b};
  saving_.SetOptionsDirty();
  jotlet.ShowAnew();
}

void PictureCommands::OnAnswer(const Text& id, const PictureAnswer& answer) {
  if (!answer.load.empty()) return Load(id, answer.load);
  BJotlet* jotlet = notes_.Find(id);
  if (jotlet == nullptr) return;
  // Through the widths of the menu.
  constexpr std::int32_t kStep = 2;
  constexpr std::int32_t kThickest = 21;
  if (answer.widthSteps != 0)
    SetPen(*jotlet, std::clamp(options_.penWidth + answer.widthSteps * kStep, 1, kThickest), Pen());
  if (answer.picked) SetPen(*jotlet, options_.penWidth, *answer.picked);
  if (!answer.write) return;
  DrawnObject object = *answer.write;
  const auto words =
      BTextDlg(resources_, IDS_PICTURE_TEXT, IDS_PICTURE_TEXT_LABEL, object.text).Ask(jotlet->Handle());
  jotlet = notes_.Find(id);
  if (!words || jotlet == nullptr) return;
  object.text = *words;
  WorkOn(*jotlet, [&](PictureWork& picture, const ToolSettings&) { picture.PutText(object); });
}

}  // namespace jotlets

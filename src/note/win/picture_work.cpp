#include "note/win/picture_work.h"

#include <algorithm>
#include <utility>

#include "base/win/wide.h"
#include "picture/picture_file.h"
#include "ui/areas.h"
#include "ui/pixel_bitmap.h"
#include "ui/window.h"

namespace jotlets {
namespace {

struct ToolRow {
  ActionCode action;
  Tool tool;
};
constexpr ToolRow kTools[] = {
    {kActionPenSelect, Tool::kSelect},  {kActionPenDraw, Tool::kPen},
    {kActionPenErase, Tool::kEraser},   {kActionPenDropper, Tool::kDropper},
    {kActionPenCrop, Tool::kCrop},      {kActionPenLine, Tool::kLine},
    {kActionPenRect, Tool::kRectangle}, {kActionPenCirc, Tool::kEllipse},
    {kActionPenArrow, Tool::kArrow},    {kActionPenDrawText, Tool::kText},
    {kActionFloodFill, Tool::kFill},    {kActionPenHighlight, Tool::kHighlighter},
    {kActionPenStep, Tool::kStep},      {kActionPenRedact, Tool::kRedaction},
};

struct EffectRow {
  ActionCode action;
  Effect effect;
};
constexpr std::int32_t kWordsHeight = 12;  // pixels at the usual scale
constexpr Colour kBorderColour{64, 64, 64};
const EffectRow kEffects[] = {
    {kActionMirror, {EffectKind::kMirror}},
    {kActionFlip, {EffectKind::kFlip}},
    {kActionNegative, {EffectKind::kNegative}},
    {kActionGrey, {EffectKind::kGrey}},
    {kActionBorder, {EffectKind::kBorder, 4, kBorderColour}},
    {kActionBlur, {EffectKind::kBlur, 4}},
    {kActionJitter, {EffectKind::kJitter, 4}},
};

// Seen on every picture: black and white in turn.
void DrawFrame(HDC dc, const Rect& frame) {
  const RECT rect = ToRECT(frame);
  SetTextColor(dc, RGB(0, 0, 0));
  SetBkColor(dc, RGB(255, 255, 255));
  DrawFocusRect(dc, &rect);
}

void DrawWords(HDC dc, const Rect& area, const Text& words, std::int32_t dpi) {
  RECT place = ToRECT(area);
  const int state = SaveDC(dc);
  SetBkColor(dc, RGB(32, 32, 32));
  SetTextColor(dc, RGB(255, 255, 255));
  SetBkMode(dc, OPAQUE);
  const UniqueGdi<HFONT> font(CreateFontW(-ScaledLength(kWordsHeight, dpi), 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                                          FALSE, DEFAULT_CHARSET, 0, 0, CLEARTYPE_QUALITY, 0, L"Segoe UI"));
  const Selected letters(dc, font.get());
  DrawTextW(dc, Wide(u"  " + words + u"  "), -1, &place,
            DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
  RestoreDC(dc, state);
}

// What goes lies in the dark; what stays is divided into thirds.
void DrawCrop(HDC dc, const Rect& picture, const Rect& frame) {
  const PixelBitmap dark = MakePixelBitmap({1, 1});
  if (!dark.bitmap) return;
  const UniqueDc memory(CreateCompatibleDC(dc));
  const Selected selected(memory.get(), dark.bitmap.get());
  const Rect around[] = {{picture.left, picture.top, picture.right, frame.top},
                         {picture.left, frame.bottom, picture.right, picture.bottom},
                         {picture.left, frame.top, frame.left, frame.bottom},
                         {frame.right, frame.top, picture.right, frame.bottom}};
  for (const Rect& part : around) {
    if (!IsEmptyRect(part))
      GdiAlphaBlend(dc, part.left, part.top, part.Width(), part.Height(), memory.get(), 0, 0, 1, 1,
                    {AC_SRC_OVER, 0, 128, 0});
  }
  for (int third = 1; third < 3; ++third) {
    const LONG x = frame.left + frame.Width() * third / 3;
    const LONG y = frame.top + frame.Height() * third / 3;
    FillArea(dc, {x, frame.top, x + 1, frame.bottom}, {224, 224, 224});
    FillArea(dc, {frame.left, y, frame.right, y + 1}, {224, 224, 224});
  }
}

}  // namespace

std::optional<Effect> EffectOf(ActionCode action) {
  const auto row = std::ranges::find(kEffects, action, &EffectRow::action);
  return row == std::end(kEffects) ? std::nullopt : std::optional(row->effect);
}

std::optional<Tool> ToolOf(ActionCode action) {
  const auto row = std::ranges::find(kTools, action, &ToolRow::action);
  return row == std::end(kTools) ? std::nullopt : std::optional(row->tool);
}

ToolSettings ToolSettingsFrom(const Options& options, std::int32_t dpi) {
  ToolSettings settings;
  const auto channel = [](std::int32_t value) {
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
  };
  settings.colour = {channel(options.penColour[0]), channel(options.penColour[1]),
                     channel(options.penColour[2])};
  settings.width = std::clamp(options.penWidth, 1, 100);
  settings.textSize = std::clamp(options.textSize, 6, 500);
  settings.font = u"Segoe UI";
  settings.pointerReach = ScaledLength(6, dpi);
  return settings;
}

PictureFacts PictureWork::Facts() const {
  PictureFacts facts{document_.CanUndo() || IsWorking(), document_.CanRedo(), HasSelection()};
  const auto row = std::ranges::find(kTools, tool_.Chosen(), &ToolRow::tool);
  if (inHand_ && row != std::end(kTools)) facts.tool = row->action;
  return facts;
}

bool PictureWork::Do(ActionCode action, const ToolSettings& settings) {
  tool_.Set(settings);
  if (const std::optional<Tool> tool = ToolOf(action)) {
    // The same one again puts it away.
    inHand_ = !inHand_ || tool_.Chosen() != *tool;
    Show(tool_.Choose(inHand_ ? *tool : Tool::kSelect));
    if (!inHand_) document_.SelectArea({});
    return true;
  }
  return DoWhole(action);
}

void PictureWork::Apply(const Effect& effect) {
  document_.Apply(effect);
  ShowAll();
}

void PictureWork::PutEffect(const Picture& pixels, std::uint64_t version) {
  if (version == document_.Version()) document_.ReplaceArea(document_.EffectArea(), pixels);
  ShowAll();
}

void PictureWork::Preview(const Picture& pixels) {
  const Rect area = document_.EffectArea();
  shown_.Put(area.TopLeft(), pixels);
  changed_ = Enclosing(changed_, area);
}

void PictureWork::SetWorking(const Text& words, std::int32_t dpi) {
  working_ = words;
  workingDpi_ = dpi;
  changed_ = WholeOf(document_.PictureSize());
}

bool PictureWork::DoWhole(ActionCode action) {
  switch (action) {
    case kActionUndo: document_.Undo(); break;
    case kActionRedo: document_.Redo(); break;
    case kActionRotLeft: document_.Turn(Orientation::kTurnedLeft); break;
    case kActionRotRight: document_.Turn(Orientation::kTurnedRight); break;
    case kActionClear:
    case kActionPenClearSel: return ClearSelected(), true;
    case kActionPenClearAll: {
      Picture white = BlankPicture(document_.PictureSize());
      std::ranges::fill(white.pixels, std::uint8_t{255});
      document_.Load(std::move(white));
      break;
    }
    default: return false;
  }
  ShowAll();
  return true;
}

void PictureWork::Resize(Size size) {
  document_.Resize(size);
  ShowAll();
}

void PictureWork::Paste(const Picture& picture) {
  document_.Paste(picture, {});
  tool_.Choose(Tool::kSelect);
  inHand_ = true;
  ShowAll();
}

void PictureWork::Load(Picture picture) {
  document_.Load(std::move(picture));
  ShowAll();
}

// The area, else the object.
void PictureWork::ClearSelected() {
  if (!IsEmptyRect(document_.Selection())) {
    document_.Clear(document_.Selection());
  } else if (Selected() != nullptr) {
    document_.Delete(document_.SelectedObject());
  }
  ShowAll();
}

std::string PictureWork::SelectedPng() const {
  Rect area = document_.Selection();
  if (const DrawnObject* object = Selected(); IsEmptyRect(area) && object != nullptr)
    area = BoundsOf(*object);
  area = CommonPart(area, WholeOf(document_.PictureSize()));
  return EncodePng(document_.Composed(IsEmptyRect(area) ? WholeOf(document_.PictureSize()) : area));
}

void PictureWork::ShowAll() {
  shown_.Load(document_.Composed());
  changed_ = WholeOf(document_.PictureSize());
}

std::optional<DrawnObject> PictureWork::Show(const ToolAnswer& answer) {
  if (answer.flood) document_.Fill(*answer.flood, tool_.Settings().colour, tool_.Settings().tolerance);
  const bool resized = shown_.PixelSize() != document_.PictureSize();
  if (resized || answer.flood) {
    ShowAll();
  } else if (!IsEmptyRect(answer.changed)) {
    // The frame to crop to is no part of the picture.
    if (tool_.Chosen() != Tool::kCrop)
      shown_.Put({answer.changed.left, answer.changed.top},
                 document_.Composed(answer.changed, tool_.Preview()));
    changed_ = Enclosing(changed_, answer.changed);
  }
  return answer.write;
}

PictureAnswer PictureWork::Drag(PointerStep step, Point at, const Rect& area, const ToolSettings& settings) {
  if (!inHand_ || IsWorking()) return {};
  const Size size = document_.PictureSize();
  const double scale = static_cast<double>(size.width) / std::max(area.Width(), 1);
  ToolSettings scaled = settings;
  // What is drawn is as thick as it is meant to be seen, on pictures that are shown smaller, too.
  for (double* const length : {&scaled.pointerReach, &scaled.width, &scaled.textSize}) *length *= scale;
  tool_.Set(scaled);
  Pointer pointer{{(at.x - area.left + 0.5) * scale, (at.y - area.top + 0.5) * scale}};
  pointer.shift = GetAsyncKeyState(VK_SHIFT) < 0;
  pointer.ctrl = GetAsyncKeyState(VK_CONTROL) < 0;
  PictureAnswer answer{.used = true};
  ToolAnswer told;
  switch (step) {
    case PointerStep::kDown: told = tool_.Down(pointer); break;
    case PointerStep::kMove: told = tool_.Move(pointer); break;
    case PointerStep::kUp:
      told = tool_.Up(pointer);
      // What was drawn quickly on the way is smoothed.
      changed_ = WholeOf(size);
      break;
  }
  answer.write = Show(told);
  answer.picked = told.picked;
  return answer;
}

bool PictureWork::GiveUpDrag() {
  if (!tool_.IsDragging()) return false;
  Show(tool_.Cancel());
  changed_ = WholeOf(document_.PictureSize());
  return true;
}

PictureAnswer PictureWork::Press(std::uint16_t key, bool shift) {
  if (!inHand_ || IsWorking()) return {};
  if (key == VK_OEM_4 || key == VK_OEM_6) return {.used = true, .widthSteps = key == VK_OEM_4 ? -1 : 1};
  // What was drawn quickly on the way is smoothed.
  if (tool_.IsDragging()) changed_ = WholeOf(document_.PictureSize());
  const ToolAnswer told = tool_.Press(key, shift);
  PictureAnswer answer{.used = told.used || key == VK_ESCAPE};
  answer.write = Show(told);
  // With nothing left to give up, Esc puts the tool away.
  if (!told.used && key == VK_ESCAPE) inHand_ = false;
  return answer;
}

const DrawnObject* PictureWork::Selected() const {
  if (!inHand_ || tool_.Chosen() != Tool::kSelect) return nullptr;
  return tool_.Preview() != nullptr ? tool_.Preview() : document_.Find(document_.SelectedObject());
}

void PictureWork::Draw(HDC dc, const Rect& area, const Rect& seen) const {
  shown_.Draw(dc, area, seen, tool_.IsDragging());
  if (IsWorking()) DrawWords(dc, CommonPart(area, seen), working_, workingDpi_);
  if (!inHand_) return;
  const Rect picture = CommonPart(area, seen);
  const int state = SaveDC(dc);
  IntersectClipRect(dc, picture.left, picture.top, picture.right, picture.bottom);
  const Rect& frame = IsEmptyRect(tool_.Frame()) ? document_.Selection() : tool_.Frame();
  if (!IsEmptyRect(tool_.Frame()) && tool_.Chosen() == Tool::kCrop)
    DrawCrop(dc, picture, Placed(frame, area));
  if (!IsEmptyRect(frame)) DrawFrame(dc, Placed(frame, area));
  if (const DrawnObject* selected = Selected()) DrawFrame(dc, Placed(BoundsOf(*selected), area));
  RestoreDC(dc, state);
}

Rect PictureWork::FramesOf() const {
  if (!inHand_) return {};
  Rect frames = IsEmptyRect(tool_.Frame()) ? document_.Selection() : tool_.Frame();
  // Around the frame to crop to all is darkened.
  if (tool_.Chosen() == Tool::kCrop && !IsEmptyRect(frames)) return WholeOf(document_.PictureSize());
  if (const DrawnObject* selected = Selected()) frames = Enclosing(frames, BoundsOf(*selected));
  return frames;
}

Rect PictureWork::ConsumeChanged(const Rect& area) {
  // Pixels that a smoothed edge and a frame reach further.
  const std::int32_t reach = 2 + 2 * area.Width() / std::max(document_.PictureSize().width, 1);
  // Of another size it also leaves places, and stands at another scale.
  if (std::exchange(shownSize_, document_.PictureSize()) != document_.PictureSize()) {
    changed_ = {};
    framed_ = FramesOf();
    return area;
  }
  const Rect frames = FramesOf();
  const Rect changed =
      Enclosing(std::exchange(changed_, {}), Enclosing(std::exchange(framed_, frames), frames));
  if (IsEmptyRect(changed)) return {};
  const Rect placed = Placed(changed, area);
  return CommonPart({placed.left - reach, placed.top - reach, placed.right + reach, placed.bottom + reach},
                    area);
}

bool PictureWork::WantsFiles() const {
  const Size size = document_.PictureSize();
  return writtenVersion_ != document_.Version() && std::int64_t{size.width} * size.height > kMaxPixelsAtOnce;
}

void PictureWork::PutFiles(PictureFiles files, std::uint64_t version) {
  if (version != document_.Version()) return;
  written_ = std::move(files);
  writtenVersion_ = version;
}

const PictureFiles& PictureWork::Files() const {
  if (writtenVersion_ != document_.Version()) {
    written_ = FilesOf(document_.PartsToSave(), letters_);
    writtenVersion_ = document_.Version();
  }
  return written_;
}

}  // namespace jotlets

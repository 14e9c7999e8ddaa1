// The commands of a note: those that are its own affair, and who carries out the others.
#include "action/action_table.h"
#include "note/win/jotlet.h"
#include "note/win/picture_work.h"

namespace jotlets {

struct BJotlet::ActionHandler {
  ActionCode code;
  bool JotletData::*flag;  // what the command turns round; nullptr for none
  void (*run)(BJotlet& jotlet, std::int32_t value, bool on);
};

constexpr BJotlet::ActionHandler BJotlet::kHandlers[] = {
    {kActionOnTop, &JotletData::onTop, [](BJotlet& j, std::int32_t, bool on) { j.SetOnTop(on); }},
    {kActionRoll, &JotletData::rolled, [](BJotlet& j, std::int32_t, bool on) { j.SetRolled(on); }},
    {kActionLock, &JotletData::readOnly, [](BJotlet& j, std::int32_t, bool on) { j.SetReadOnly(on); }},
    {kActionAutoWidth, nullptr, [](BJotlet& j, std::int32_t, bool) { j.FitWidth(); }},
    {kActionFitPicture, nullptr, [](BJotlet& j, std::int32_t, bool) { j.FitToPicture(); }},
    {kActionFindText, nullptr, [](BJotlet& j, std::int32_t, bool) { j.OpenFind(); }},
    {kActionGoAway, nullptr, [](BJotlet& j, std::int32_t, bool) { j.GoAway(); }},
    {kActionUser1, &JotletData::user1,
     [](BJotlet& j, std::int32_t, bool on) { j.Mark(&JotletData::user1, on); }},
    {kActionUser2, &JotletData::user2,
     [](BJotlet& j, std::int32_t, bool on) { j.Mark(&JotletData::user2, on); }},
    {kActionUser3, &JotletData::user3,
     [](BJotlet& j, std::int32_t, bool on) { j.Mark(&JotletData::user3, on); }},
    {kActionStang, &JotletData::stang,
     [](BJotlet& j, std::int32_t, bool on) { j.Mark(&JotletData::stang, on); }},
    {kActionTransparentOpaque, nullptr,
     [](BJotlet& j, std::int32_t percent, bool) { j.SetTransparency(percent); }},
};

void BJotlet::DoPart(PartUse use) {
  if (use == PartUse::kDismiss) return StopAlarm();
  if (use == PartUse::kSnooze) return owner_.Snooze(*this);
  if (BEdit* edit = Editor()) edit->Do(EditorKey::kCheckList);
  UpdateView();
}

PictureFacts BJotlet::Drawing() const {
  const PictureWork* picture = content_->Drawing();
  PictureFacts facts = picture == nullptr ? PictureFacts() : picture->Facts();
  if (const PictureZoom* const zoom = content_->Zoom()) facts.zoom = zoom->Percent();
  return facts;
}

bool BJotlet::WorkOnPicture(const ContentFile& file, const PictureTask& work) {
  const Options& options = context_.options;
  PictureWork* picture = content_->BeginDrawing(file, options.imageUndo);
  if (picture == nullptr) return false;
  const std::uint64_t before = picture->Version();
  work(*picture, ToolSettingsFrom(options, place_.Dpi()));
  PictureChanged(*picture, before);
  return true;
}

bool BJotlet::DoAction(ActionCode action, Point at) {
  static_assert(AreHandlersBy(ActionBy::kNote, kHandlers));
  // What is being drawn is the last that was done.
  if (GiveUpDrawing() && action == kActionUndo) return true;
  if (!StateOf(action, owner_.FactsOf(*this)).enabled) return false;
  // A click on a button of the skin has a place, keys and commands have none.
  menuAsked_ = at == Point{} ? std::nullopt : std::optional(MousePosition());
  // The menu of a sounding note offers to let it sound again later.
  if (action != kActionOpenJotletContext && action != kActionOpenTextContext) StopAlarm();
  const NoteAction& row = RowOf(action);
  if (row.by == ActionBy::kEditor && Editor() != nullptr) {
    const HWND window = Handle();
    const bool done = DoEditAction(*Editor(), action, context_.editing());
    // A link may ask first, and the note may be gone when that is answered.
    if (IsWindow(window) != 0) UpdateView();
    return done;
  }
  const ActionHandler* handler = HandlerOf(kHandlers, row);
  if (handler == nullptr) return owner_.OnJotletAction(*this, action);
  // All notes of a selection take the state that this one takes.
  const bool on = handler->flag != nullptr && !(record_.*handler->flag);
  for (BJotlet* jotlet : owner_.GroupOf(*this)) handler->run(*jotlet, row.sets.value, on);
  return true;
}

}  // namespace jotlets

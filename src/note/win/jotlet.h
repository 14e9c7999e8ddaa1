// A note on the desktop: a borderless window drawn by its skin, holding its record and its content.
#pragma once

#include <optional>
#include <string_view>
#include <utility>

#include "base/clock.h"
#include "base/files.h"
#include "data/jotlet_data.h"
#include "editor/win/edit.h"
#include "note/alarm.h"
#include "note/animation.h"
#include "note/rolled.h"
#include "note/win/jotlet_owner.h"
#include "note/win/picture_work.h"
#include "note/win/shown_content.h"
#include "note/win/skinned_window.h"
#include "note/win/title_edit.h"
#include "note/win/title_tooltip.h"

namespace jotlets {

inline constexpr wchar_t kJotletClass[] = L"BraskJotletNote";

class BJotlet final : public SkinnedWindow, private ContentWatcher {
 public:
  /// `record` has a place and a size, and is shared with whoever keeps the lists: not changed elsewhere while
  /// the note is open. `owner` and `context` outlive the note.
  BJotlet(JotletOwner& owner, const NoteContext& context, std::shared_ptr<JotletData> record);
  /// In one place: the linker of MinGW takes the ways into it from each base for different ones.
  ~BJotlet() override;
  BJotlet(const BJotlet&) = delete;
  BJotlet& operator=(const BJotlet&) = delete;

  /// Creates the window, not yet shown; false when the system could not.
  bool CreateWindowFor();

  /// What the note holds. A change of it is a change of the note.
  NoteContent& Content() { return *content_; }
  const NoteContent& Content() const { return *content_; }
  /// Loads the content from the bytes of its file. What of it could not be shown as it is, empty for nothing.
  TextView LoadContent(std::string_view bytes);
  /// The same of one that must not be shown as it is, for the reason that the notice tells.
  void LoadWords(std::string_view bytes, TextView notice);
  /// The content file is there but was not read whole: it is kept under another name before it is replaced.
  void KeepOldContent() { keepOldContent_ = true; }
  /// Shows or hides the window; whether the note is a hidden one is another matter.
  void Show();
  void Hide();

  /// The record with its place, size and scroll position brought up to date with the screen.
  JotletData& Record();
  /// The record as it was last brought up to date.
  const JotletData& StoredRecord() const { return record_; }

  bool HasUnsavedContent() const { return content_->HasUnsavedChanges(); }
  /// Writes the content file when the content has changed since; after a failure it still counts as changed.
  FileStatus SaveContent(Files& files, TextView dataFolder, const Moment& now);

  /// Its editor; nullptr for a picture.
  BEdit* Editor() { return content_->Editor(); }
  const BEdit* Editor() const { return content_->Editor(); }
  /// Puts all of the content on the clipboard, a text also with its formatting if `formatted`.
  void CopyContent(HWND owner, bool formatted, const ContentFile& file) const {
    content_->PutOnClipboard(owner, formatted, file);
  }
  /// Its title, or, when it has none, the beginning of its text.
  const Text& TitleShown() const { return shownTitle_; }
  Text PlainText() const { return content_->PlainText(); }
  Text Rtf() const { return content_->RichText(); }
  void SetTitle(TextView title);
  /// Lets the user edit the title where it stands; false when the skin has no place for that.
  bool EditTitle();
  bool IsTitleEdited() const { return title_.edit.IsOpen(); }
  void SetColour(Colour colour);
  /// Shows the note in the skin of a name, empty for the default one.
  void SetSkin(TextView name);
  /// Takes its skin anew, after the default one or the files have changed.
  void RefreshSkin();
  /// The options have changed.
  void FollowOptions();
  /// False: the skin has no rolled form to take.
  bool SetRolled(bool rolled);
  /// The height of the note as if unrolled. One that nobody knows is computed from the content, and told of.
  std::int32_t GetJotletHeight();
  void SetOnTop(bool onTop);
  void SetReadOnly(bool readOnly);
  /// A hidden note keeps its window, but does not show it.
  void SetHidden(bool hidden);
  void SetGhost(bool ghost);
  /// The percentage of opacity that remains, 0 for all of it.
  void SetTransparency(std::int32_t percent);
  /// Slides out at the nearest edge of the screen and is then hidden.
  void GoAway();
  /// The time of its alarm, seconds since 1970 UTC, `kNone` for none.
  void SetAlarm(std::int32_t time);
  /// Begins to sound; a note that cannot be seen now does when it can. Its alarm is then spent. The note may
  /// be gone when the call returns.
  void StartAlarm();
  /// Ends that, and puts the note back to exactly where it was.
  void StopAlarm();
  bool IsSounding() const { return alarmPhase_ != kNotSounding; }
  /// The alarm is due, and the note is away until the window that it is attached to comes to the front.
  bool WaitsForWindow() const { return waitsForWindow_; }
  /// It waits no more: the note is shown, and sounds unless the window is behind once more.
  void EndWaitForWindow();
  /// One of several notes that are selected together.
  void SetSelected(bool selected);
  bool IsSelected() const { return selected_; }
  /// Opens the strip in which words are typed that are looked for.
  void OpenFind(TextView words = {}) { content_->OpenFind(Handle(), words); }
  /// Whether the keys of a window in the note are that window's own, and no commands.
  bool OwnsKeysOf(HWND window) const { return content_->OwnsKeysOf(window); }

  /// The monitors are (now) these; the note is shown where it can be seen. True when that moved it.
  bool ShowOnScreens(const MonitorSetup& screens);
  /// A note whose place is off the screen takes the one where it is shown for good. Where it was, nothing for
  /// a note on the screen.
  std::optional<Point> Rescue();
  /// Where the window is but for the jiggling of an alarm.
  Rect SettledBounds() const;

  /// Begins an animated move; ignored while one is running.
  void StartAnimation(Point from, Point to, AnimationKind kind);
  /// One step of it; whether it goes on. The note may be gone when it does not.
  bool TickAnimation();
  /// Cuts the move short: the note is at once where it ends, or hidden. The note may be gone when the call
  /// returns.
  void FinishAnimation();
  /// What its skin shows of it has changed.
  void ShowAnew() { UpdateView(); }
  /// Its picture, as soon as somebody has drawn on it; else nullptr.
  PictureWork* Drawn() const { return content_->Drawing(); }
  /// What can be done with its picture now.
  PictureFacts Drawing() const;
  /// Has something done to its picture, which is read from its file if nobody has drawn on it before; false
  /// when it cannot be read.
  bool WorkOnPicture(const ContentFile& file, const PictureTask& work);
  void SetUserString(TextView words);
  /// Takes over what a user can set: title, user string, colour, opacity, size and flags.
  void ApplyProperties(const JotletData& wanted);
  /// Carries out the command of an action code, unless it cannot be carried out now; `at` is the place of the
  /// click in client pixels. False for a code that is no command of a note. The note may be gone when the
  /// call returns.
  bool DoAction(ActionCode action, Point at);
  /// Where a menu of the note goes on the screen: to the mouse that asked for it, else to the caret or under
  /// the title.
  Point MenuPlace(bool ofText) const;
  bool SetPlainText(TextView text) { return content_->SetPlainText(text); }
  bool SetRtf(TextView rtf) { return content_->SetRichText(rtf); }
  void MoveTo(Point position);
  /// Makes the note as wide as its longest line wants, at most half the screen.
  void FitWidth();
  /// Gives the note the size in which all of its picture is seen at a hundred percent, or as much as the
  /// monitor has room for.
  void FitToPicture();
  /// Shows more or less of its picture, by the command that says how; false for a note without one.
  bool ZoomPicture(ActionCode action);
  /// Whether the picture, shown larger, has all of its pixels.
  bool HasAllPixels() const { return content_->HasAllPixels(); }
  /// Moves the note and those selected with it, or sizes it, as the user does with the keyboard.
  void MoveByKey(Point offset);
  void GrowByKey(Size growth);
  /// Puts the window somewhere without that being a change worth saving.
  void PlaceAt(Point position);
  /// The user is moving or sizing the note, or it is on an animated way.
  bool IsMoving() const { return drag_ == Drag::kMoving || drag_ == Drag::kSizing || animation_.running; }
  /// Comes under the mouse, whose button is held, and is dragged from there on.
  void BeginDragAtMouse();
  /// The number of the stack that the note belongs to, -1 for none.
  void SetStack(std::int32_t number);
  /// The window that the note is attached to; a default one is none.
  void SetAttachment(const Attachment& attachment);
  /// Takes a size, but never below the smallest of the skin.
  void SetSizeSafe(Size size);
  void PasteClipboard(bool formatted = true) { content_->Paste(formatted); }
  void BringForward();
  void FocusNow();

 private:
  static constexpr UINT_PTR kFadeTimer = 1226;
  static constexpr UINT_PTR kAlarmTimer = 1228;
  static constexpr UINT kLaterMessage = WM_APP;
  struct ActionHandler;
  static const ActionHandler kHandlers[];

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Draw(HDC dc, const Rect& part) override;
  FramePart PartAt(Point at) const override;
  bool DoSkinAction(ActionCode action, Point at) override { return DoAction(action, at); }
  std::vector<Rect> WindowsToSnapTo() const override { return owner_.WindowsToSnapTo(*this); }
  void BeginPress() override;
  Press PressAt(Point at, bool ctrl) override;
  bool RollsAt(Point at) const override;
  void OnHover(Point at) override;
  void OnMouseGone() override { OnEditMouse(); }
  void DragContent(Point mouse) override;
  void DropContent(Point at) override;
  LPCWSTR CursorAt(Point at) const override;
  bool DragInPicture(PointerStep step, Point at);
  bool PressInPicture(std::uint16_t key);
  bool Serve(const PictureAnswer& answer);
  void PictureChanged(PictureWork& picture, std::uint64_t versionBefore);
  bool GiveUpDrawing();
  void OnFilesDropped(WPARAM drop);
  void DragFrame(const Rect& bounds) override;
  void OnDragEnded(Drag ended, bool shift) override;
  void OnSize() override;
  void OnFocus(bool gained) override;
  void SyncPlace() override;
  void Place(const Rect& bounds) override;
  void OnScaleChanged() override;
  void FillView() override;
  std::vector<SkinPart> SkinParts() const override;
  HWND ContentWindow() const override { return content_->ContentWindow(); }
  void FocusContent() override { SetFocus(FocusWindow()); }
  Text WordsOfState(SkinState state) const;
  void DoPart(PartUse use) override;
  void ShowFormat(bool hadBar);
  void ShowTools();
  void OfferButtonTip(Point at);
  ScrollState Scrolled() const override;
  void Invalidate(const SkinView& before) override;

  LRESULT OnControl(UINT control, UINT notification);
  void OnMenuAsked(HWND window, std::optional<Point> mouse);
  void PlaceByRecord();
  std::int32_t HeightOfContent();
  Rect ContentArea() const;
  PictureFrame FrameOfPicture() const;
  Rect ContentPlace() const { return content_->PlaceIn(ContentArea(), place_.Dpi()); }
  void ShowPictureAnew();
  bool ScrollPicture(Point by);
  bool OnWheel(UINT message, WPARAM wParam);
  bool OnScrollKey(WPARAM key);
  void ScrollDownTo(std::int32_t position);
  void ScrollPages(std::int32_t pages);
  void MoveBy(Point offset);
  /// A locked note can be frozen to its place.
  bool IsFrozen() const { return record_.readOnly && context_.options.lockingFreezes; }
  RollSettings Rolling() const;
  void ShowOpacity(std::int32_t percent);
  void BeginFade();
  void FadeStep();
  bool ShowFrame(const AnimationFrame& frame);
  void OnEditScrolled() override;
  void OnEditMouse() override;
  void OnEditSelection() override {
    if (hasFocus_) UpdateView();
  }
  void OnEditLink(const Text& target) override;
  bool HasDirectionKeys() override {
    return !context_.options.noRtlKeys && (context_.options.rtl || HasRightToLeftKeyboard());
  }
  Text Searched() override { return context_.searched; }
  void SetSearched(const Text& words) override { context_.searched = words; }
  Text WordsOf(std::uint32_t text) override { return context_.textOf(text); }
  Text FoundWords(const FoundText& found) override { return context_.foundWords(found); }
  const Theme& StripLook() const override { return context_.theme; }
  Colour StripPaper() const override { return PaperColour(skin_->data, view_.colour, view_.clearPaper); }
  TypingSettings Typing() override { return context_.editing().typing; }
  void OnContentChanged() override;
  Text BeginningNotice() override { return context_.beginningNotice(); }

  ShownContent::Look ContentLook() const;
  HWND FocusWindow() const;
  bool BeginScrolling(Point at);
  SkinStates States() const;
  void ApplySkin();
  void Mark(bool JotletData::*flag, bool on);
  void Tell(JotletEvent event) { owner_.OnJotletEvent(*this, event); }
  void TitleChanged();
  Text BarTitle() const;
  void OnTitleEdited(const Text* title, HWND focus);
  void ApplyOpacity();
  void ApplyGhost();
  void ShowAlarm();
  void StartPendingAlarm();
  void TickAlarm();
  Colour ShownColour() const;
  void ShowPaper();

  JotletOwner& owner_;
  std::shared_ptr<JotletData> shared_;
  JotletData& record_;
  std::unique_ptr<ShownContent> content_;
  struct {
    TitleTooltip tooltip;
    TitleEdit edit;
  } title_;
  Animation animation_;
  std::int32_t fadeStep_ = 0;
  Text shownTitle_;
  std::int32_t alarmPhase_ = kNotSounding;
  Point alarmOrigin_;  // while it sounds
  bool alarmPending_ = false;
  bool waitsForWindow_ = false;
  bool keepOldContent_ = false;
  bool selected_ = false;
  struct {
    bool scrolls = false;                // the scroll bar is in hand
    Rect draggedThumb;                   // in client pixels, then
    std::optional<PictureAnswer> asked;  // that the owner is to be told of
  } press_;
};

}  // namespace jotlets

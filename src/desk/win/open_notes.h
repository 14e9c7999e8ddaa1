// The open notes: their windows, in list order, found by id.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "base/clock.h"
#include "data/stack_record.h"
#include "desk/load_trials.h"
#include "desk/note_event.h"
#include "desk/note_windows.h"
#include "desk/win/note_links.h"
#include "note/win/jotlet.h"
#include "res/resource.h"
#include "skin/win/program_skins.h"
#include "ui/handle.h"
#include "ui/resources.h"

namespace jotlets {

/// What the open notes ask of the rest of the program.
class OpenNotesOwner {
 public:
  virtual ~OpenNotesOwner() = default;
  /// A note or its content has changed and wants to be saved.
  virtual void OnNoteChanged(const Text& id) = 0;
  /// The mouse moves a note, or has let go of it; with Shift it may join a stack.
  virtual void OnNoteDragged(bool shift) = 0;
  virtual void OnNoteDropped(BJotlet& jotlet, bool shift) = 0;
  /// The user has moved a note, by itself or with others.
  virtual void OnNoteMoved(const JotletData& record) = 0;
  /// Whether the note is attached to a window that is there, but behind another.
  virtual bool IsTargetBehind(const JotletData& record) = 0;
  /// An animated move has ended that closes or deletes its note.
  virtual void OnAnimationClosed(const Text& id, bool deletes) = 0;
  /// A note has gone out of sight, and is hidden.
  virtual void OnNoteHidden(const BJotlet& jotlet) = 0;
  virtual bool DoNoteAction(const Text& id, ActionCode action) = 0;
  /// A sounding note is to sound again later.
  virtual void SnoozeNote(const Text& id) = 0;
  /// A colour was picked from a picture, or words are to be asked for.
  virtual void OnPictureAnswer(const Text& id, const PictureAnswer& answer) = 0;
  /// What the states of a note's commands depend on.
  virtual ActionFacts FactsOfNote(const BJotlet& jotlet) const = 0;
  /// The stacks on the screen, and one of them by its number.
  virtual std::vector<Rect> StackBounds() const = 0;
  virtual const StackRecord* FindStack(std::int32_t number) const = 0;
  /// A note waits to be thrown away: `OpenNotes::Purge` is to be called from the message loop.
  virtual void PurgeSoon() = 0;
  /// A note begins to move where none did: `OpenNotes::Animate` is to be called until it says no more.
  virtual void BeginAnimations() = 0;
  /// The height of a rolled note was unknown, which the user is to be told when nothing is under way.
  virtual void TellUnknownHeightSoon() = 0;
};

class OpenNotes final : public JotletOwner, public NoteWindows {
 public:
  OpenNotes(OpenNotesOwner& owner, EventSink& events, const Resources& resources, Files& files,
            const Clock& clock, Log& log, const Options& options, ProgramSkins& skins, LoadTrials& trials)
      : owner_(owner),
        events_(events),
        resources_(resources),
        files_(files),
        clock_(clock),
        log_(log),
        options_(options),
        skins_(skins),
        trials_(trials),
        context_{options_,
                 resources.Look(),
                 screens_,
                 skins_,
                 clock_,
                 log_,
                 [this](std::int32_t number) { return StackName(number); },
                 [this] { return EditingContext(); },
                 [&resources] { return resources.String(IDS_BEGINNING); },
                 searched_,
                 [&resources](const FoundText& found) { return FoundWords(resources, found); },
                 [this, &resources](HWND note, const Text& target, bool fromOutside) {
                   FollowLink(note, resources, log_, target, fromOutside);
                 },
                 [&resources](std::uint32_t id) { return resources.String(id); }} {}
  ~OpenNotes() override = default;
  OpenNotes(const OpenNotes&) = delete;
  OpenNotes& operator=(const OpenNotes&) = delete;

  void SetFolder(TextView dataFolder) { folder_ = dataFolder; }

  BJotlet* Find(TextView id) const;
  const std::vector<std::unique_ptr<BJotlet>>& All() const { return jotlets_; }
  std::vector<Text> Ids() const {
    std::vector<Text> ids;
    ids.reserve(jotlets_.size());
    for (const auto& jotlet : jotlets_) ids.push_back(jotlet->StoredRecord().id);
    return ids;
  }

  bool Open(std::shared_ptr<JotletData> record) override;
  void Close(TextView id) override;
  void Show(TextView id, Showing showing) override;
  void Sync(TextView id) override;
  void Rename(TextView id, TextView newId) override;
  FileStatus SaveContent(TextView id) override;
  NoteContent& ContentOf(TextView id) override;
  void StyleNewText(TextView id) override;
  NoteWindowState StateOf(TextView id) const override;
  void PlaceAt(TextView id, Point position) override;
  void SetOnTop(TextView id) override;
  void Attach(TextView id, const Attachment& attachment) override;
  void StartAlarm(TextView id) override;
  void EndWaitForWindow(TextView id) override;
  ScreenFacts Screen() const override;

  /// Shows every note that is not hidden.
  void ShowAll();
  /// Shows every note, the hidden ones too, which are then hidden no more.
  void UnhideAll();
  /// Takes every window off the screen; no note becomes a hidden one by that.
  void HideAll();
  void BringForward();
  /// The shown note behind (1) or before (-1) this one in list order, which begins again at its end; the note
  /// itself when no other is shown.
  BJotlet* Neighbour(const BJotlet& jotlet, int step);
  /// Hides every note but one.
  void HideOthers(const BJotlet& shown);
  /// The note whose window this is, or is inside of; nullptr for other windows.
  BJotlet* FindWindowOwner(HWND window);
  /// Notes whose place is off the screen get one on it for good, each of which is logged, and the ghosts
  /// among them end being such: nobody could take hold of them.
  void Rescue();
  /// Ends the ghost state of all notes.
  void EndGhosts() {
    for (const auto& jotlet : jotlets_) jotlet->SetGhost(false);
  }
  /// Shows every note where it can be seen on the monitors that there are now: call it whenever they may have
  /// changed. What a note's record says stays as the user chose it.
  void FollowMonitors();
  /// One step of all animated moves; whether any goes on.
  bool Animate();
  void OnPictureAnswer(BJotlet& jotlet, const PictureAnswer& answer) override {
    owner_.OnPictureAnswer(Text(jotlet.StoredRecord().id), answer);
  }
  void Snooze(BJotlet& jotlet) override { owner_.SnoozeNote(Text(jotlet.StoredRecord().id)); }
  /// Whether a note sounds.
  bool IsAnySounding() const { return now_.sounding > 0; }
  void StopAlarms();
  /// The options have changed.
  void FollowOptions();
  /// Whether notes take the mouse and the keyboard.
  void Enable(bool enabled);

  /// Throws removed notes away whose windows no longer serve a message; the others wait for the next call,
  /// which may take as long as a menu of theirs is open.
  void Purge() {
    std::erase_if(removed_, [](const auto& jotlet) { return !jotlet->IsBusy(); });
  }

  void OnJotletEvent(BJotlet& jotlet, JotletEvent event) override;
  void OnJotletMouse(BJotlet& jotlet, JotletMouse mouse, bool key) override;
  bool OnJotletAction(BJotlet& jotlet, ActionCode action) override {
    return owner_.DoNoteAction(Text(jotlet.StoredRecord().id), action);
  }
  ActionFacts FactsOf(const BJotlet& jotlet) override { return owner_.FactsOfNote(jotlet); }
  /// What the windows on the desktop share.
  const NoteContext& Context() const { return context_; }
  const Options& NoteOptions() const { return options_; }
  EditContext EditingContext();
  /// The back colours of the highlights, from the options.
  HighlightColours Highlights() const;
  std::vector<BJotlet*> GroupOf(BJotlet& jotlet) override;
  std::vector<Rect> WindowsToSnapTo(const BJotlet& jotlet) override;
  const MonitorSetup& Screens() { return screens_; }
  void OnAnimationEnded(BJotlet& jotlet, AnimationKind kind) override;
  /// The local time of seconds since 1970 UTC; now for 0.
  LocalTime ToLocal(std::int32_t utc);
  bool IsTargetBehind(BJotlet& jotlet) override { return owner_.IsTargetBehind(jotlet.StoredRecord()); }

  /// Shows a note in a skin and logs it.
  void SetSkin(BJotlet& jotlet, TextView name);
  /// Every note takes its skin anew.
  void RefreshSkins();

 private:
  template <typename Do>
  void ForEachOf(const std::vector<Text>& ids, Do act);
  void OnJotletMoved(BJotlet& jotlet);
  void OnJotletSized(BJotlet& jotlet);
  void OnJotletFocus(BJotlet& jotlet, bool gained);
  void OnAlarm(BJotlet& jotlet, bool sounding);
  void OnJotletClicked(BJotlet& jotlet);
  void OnJotletPressed(BJotlet& jotlet, bool ctrl);
  static Text FoundWords(const Resources& resources, const FoundText& found);
  std::optional<Text> StackName(std::int32_t number) const;
  void LogRescue(const BJotlet& jotlet, Point from);
  void Load(BJotlet& jotlet, std::string_view content);
  void ShowOnScreens(BJotlet& jotlet);

  OpenNotesOwner& owner_;
  EventSink& events_;
  const Resources& resources_;
  Files& files_;
  const Clock& clock_;
  Log& log_;
  const Options& options_;
  ProgramSkins& skins_;
  LoadTrials& trials_;
  MonitorSetup screens_;
  const NoteContext context_;
  std::vector<EditStyle> styles_;
  std::optional<LiftedFormat> lifted_;
  Text searched_;
  struct {
    int sounding = 0;      // how many do
    bool deserted = true;  // another program was worked with since the notes were brought forward
  } now_;
  std::vector<Text> animating_;  // the ids of the notes that move
  Text folder_;
  std::vector<std::unique_ptr<BJotlet>> jotlets_;
  std::unordered_map<Text, BJotlet*> byId_;  // by folded id
  // A note may be removed while one of its messages is being served; it then waits here.
  std::vector<std::unique_ptr<BJotlet>> removed_;
};

}  // namespace jotlets

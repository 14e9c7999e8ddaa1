// The commands of picture notes: what the options, the clipboard and files have to do with them.
#pragma once

#include "app/win/commands/undo_offers.h"
#include "app/win/program_saving.h"
#include "data/options.h"
#include "desk/note_desk.h"
#include "desk/win/note_contents.h"
#include "desk/win/open_notes.h"
#include "picture/picture_jobs.h"
#include "ui/resources.h"

namespace jotlets {

class PictureCommands {
 public:
  PictureCommands(const Resources& resources, Options& options, NoteDesk& desk, OpenNotes& notes,
                  NoteContents& contents, ProgramSaving& saving, UndoOffers& undo, PictureJobs& jobs)
      : resources_(resources),
        options_(options),
        desk_(desk),
        notes_(notes),
        contents_(contents),
        saving_(saving),
        undo_(undo),
        jobs_(jobs) {}

  /// Carries out a command in a picture note; false for one that it has no use for.
  bool Do(const Text& id, ActionCode action);
  /// A colour was picked from a picture, a file dropped on it, or words are to be asked for.
  void OnAnswer(const Text& id, const PictureAnswer& answer);

  /// A note has changed. The files of a large picture take long: they are made elsewhere, and the desk is
  /// told of the change when they are there. False for any other note.
  bool MakeFiles(const Text& id);

 private:
  ContentFile FileOf(const Text& id) const;
  void WorkOn(BJotlet& jotlet, const PictureTask& work);
  void Paste(BJotlet& jotlet);
  void Copy(BJotlet& jotlet);
  void Cut(BJotlet& jotlet);
  void Choose(const Text& id);
  void Load(const Text& id, const Text& path);
  void AskSize(const Text& id);
  void Convert(BJotlet& jotlet);
  void AskEffect(const Text& id, ActionCode action, Effect effect);
  void BeginEffect(BJotlet& jotlet, const Effect& effect, bool preview);
  Colour Pen() const;
  void SetPen(BJotlet& jotlet, std::int32_t width, Colour colour);

  const Resources& resources_;
  Options& options_;
  NoteDesk& desk_;
  OpenNotes& notes_;
  NoteContents& contents_;
  ProgramSaving& saving_;
  UndoOffers& undo_;
  PictureJobs& jobs_;
};

}  // namespace jotlets

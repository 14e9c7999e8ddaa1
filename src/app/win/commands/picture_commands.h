// The commands of picture notes: what the options, the clipboard and files have to do with them.
#pragma once

#include "app/win/program_saving.h"
#include "data/options.h"
#include "desk/note_desk.h"
#include "desk/win/note_contents.h"
#include "desk/win/open_notes.h"
#include "ui/resources.h"

namespace jotlets {

class PictureCommands {
 public:
  PictureCommands(const Resources& resources, Options& options, NoteDesk& desk, OpenNotes& notes,
                  NoteContents& contents, ProgramSaving& saving)
      : resources_(resources),
        options_(options),
        desk_(desk),
        notes_(notes),
        contents_(contents),
        saving_(saving) {}

  /// Carries out a command in a picture note; false for one that it has no use for.
  bool Do(const Text& id, ActionCode action);
  /// A colour was picked from a picture, a file dropped on it, or words are to be asked for.
  void OnAnswer(const Text& id, const PictureAnswer& answer);

 private:
  ContentFile FileOf(const Text& id) const;
  void WorkOn(BJotlet& jotlet, const PictureTask& work);
  void Paste(BJotlet& jotlet);
  void Copy(BJotlet& jotlet);
  void Cut(BJotlet& jotlet);
  void Choose(const Text& id);
  void Load(const Text& id, const Text& path);
  void AskSize(const Text& id);
  Colour Pen() const;
  void SetPen(BJotlet& jotlet, std::int32_t width, Colour colour);

  const Resources& resources_;
  Options& options_;
  NoteDesk& desk_;
  OpenNotes& notes_;
  NoteContents& contents_;
  ProgramSaving& saving_;
};

}  // namespace jotlets

// The notes of any list as the preview of the manage window shows and changes them.
#pragma once

#include "desk/win/note_contents.h"
#include "manage/win/manage_preview.h"
#include "picture/picture_jobs.h"

namespace jotlets {

class PreviewedNotes final : public PreviewSource {
 public:
  PreviewedNotes(const Resources& resources, Log& log, NoteDesk& desk, OpenNotes& notes,
                 const NoteContents& contents, const Files& files, PictureJobs& jobs)
      : resources_(resources),
        log_(log),
        desk_(desk),
        notes_(notes),
        contents_(contents),
        files_(files),
        jobs_(jobs) {}

  std::optional<PreviewedText> TextOf(const Text& id) override;
  void AskPicture(const Text& id, Size largest, std::function<void(const Picture&)> seen) override;
  bool ChangeText(const Text& id, const std::string& rtf) override;
  bool ServeKey(BEdit& edit, WPARAM key) override;
  void ShowMenu(BEdit& edit, Point at) override;
  void OpenLink(HWND window, const Text& id, const Text& target) override;
  TypingSettings Typing() override { return notes_.EditingContext().typing; }

 private:
  const Resources& resources_;
  Log& log_;
  NoteDesk& desk_;
  OpenNotes& notes_;
  const NoteContents& contents_;
  const Files& files_;
  PictureJobs& jobs_;
};

}  // namespace jotlets

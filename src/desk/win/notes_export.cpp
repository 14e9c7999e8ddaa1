#include "desk/win/notes_export.h"

#include <utility>

#include "data/text_export.h"

namespace jotlets {

NotesExport::NotesExport(NoteContents& contents, const Files& files, std::vector<JotletData> notes,
                         TextView path)
    : contents_(contents), files_(files), notes_(std::move(notes)), path_(path) {}

Job::State NotesExport::Step(std::size_t mostFiles) {
  for (std::size_t i = 0; i < mostFiles && at_ < notes_.size(); ++i) {
    const JotletData& note = notes_[at_];
    const FileStatus written = contents_.WriteCopy(note, at_ == 0 ? path_ : PathOf(note));
    ++at_;
    if (written.ok) ++written_;
    if (!written.ok && reason_.empty()) reason_ = written.reason;
  }
  if (at_ < notes_.size()) return State::kRunning;
  return reason_.empty() ? State::kDone : State::kFailed;
}

Text NotesExport::PathOf(const JotletData& note) const {
  const std::size_t dot = path_.find_last_of(u".\\");
  const bool hasKind = dot != Text::npos && path_[dot] == u'.';
  const Text kind = note.IsImage() ? Text(u".png") : hasKind ? path_.substr(dot) : Text();
  const Text front =
      path_.substr(0, path_.find_last_of(u'\\') + 1) + FileNameOfTitle(contents_.TitleOf(note));
  Text path = front + kind;
  for (int number = 2; files_.Exists(path); ++number) path = front + u" (" + IntText(number) + u")" + kind;
  return path;
}

}  // namespace jotlets

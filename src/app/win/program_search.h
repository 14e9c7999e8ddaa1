// The search over all notes as the program runs it: fed a little after each change, and asked by who
// searches.
#pragma once

#include <functional>

#include "app/win/program_window.h"
#include "desk/note_desk.h"
#include "store/content_job.h"
#include "store/note_search.h"
#include "store/stored_browser.h"

namespace jotlets {

class ProgramSearch {
 public:
  ProgramSearch(const Files& files, const Clock& clock, Log& log, const ProgramWindow& window,
                NoteDesk& desk);

  /// The notes are loaded, and the window is there.
  void Start();
  /// The files are about to be replaced or moved, or the program ends.
  void Stop();
  /// Begins the content check: what it finds, `OnNews` is to be followed by.
  void CheckContents() { contents_.Start(desk_.Folder(), desk_.Lists().Claims()); }
  std::optional<ContentJob::Report> CheckedContents() { return contents_.Finished(); }
  /// The stored notes by their places, read beside the search.
  StoredBrowser& Browser() { return browser_; }

  /// A note or a list has changed, and is told to the search when nothing has changed for a moment: the text
  /// of a note is not fetched while somebody writes in it.
  void OnChanged();
  /// Tells the search what has changed.
  void Feed();
  /// The threads have something to say.
  void OnNews();
  /// See `NoteSearch::FoundDamagedStore`.
  bool FoundDamagedStore() { return search_.FoundDamagedStore(); }

  void Ask(TextView typed, std::size_t maximum);
  /// Who gets the answers.
  void Watch(std::function<void(SearchAnswer)> answered) { answered_ = std::move(answered); }
  /// See `NoteSearch::AskSurvey`; false when no answer will come.
  bool AskSurvey(SurveyQuestion question);
  void WatchBrowser(std::function<void()> browsed) { browsed_ = std::move(browsed); }
  void WatchSurveys(std::function<void(const SearchSurvey&)> surveyed) { surveyed_ = std::move(surveyed); }
  bool IsUsable() { return search_.IsUsable(); }
  /// See `NoteSearch::Names`.
  std::optional<std::vector<Text>> Names(TextView typed);

 private:
  const ProgramWindow& window_;
  NoteDesk& desk_;
  NoteSearch search_;
  StoredBrowser browser_;
  ContentJob contents_;
  std::function<void(SearchAnswer)> answered_ = [](const SearchAnswer&) {};
  std::function<void(const SearchSurvey&)> surveyed_ = [](const SearchSurvey&) {};
  std::function<void()> browsed_ = [] {};
  bool comes_ = false;  // the timer runs
};

}  // namespace jotlets

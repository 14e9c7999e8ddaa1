#include "app/win/program_search.h"

#include <utility>

namespace jotlets {

ProgramSearch::ProgramSearch(const Files& files, const Clock& clock, Log& log, const ProgramWindow& window,
                             NoteDesk& desk)
    : window_(window),
      desk_(desk),
      search_({files, clock, log, [this] { return desk_.Searched().All(); },
               [this] { window_.Post(kSearchMessage); }}),
      browser_(files, [this] { window_.Post(kSearchMessage); }),
      contents_(files, [this] { window_.Post(kSearchMessage); }) {}

void ProgramSearch::Start() {
  search_.Start(desk_.Folder());
  browser_.Start(desk_.Folder());
}

void ProgramSearch::Stop() {
  search_.Stop();
  browser_.Stop();
  contents_.Stop();
}

void ProgramSearch::OnChanged() {
  comes_ = true;
  window_.Start(ProgramTimer::kSearch);
}

void ProgramSearch::Feed() {
  if (comes_) window_.Stop(ProgramTimer::kSearch);
  comes_ = false;
  if (search_.IsRunning()) search_.Tell(desk_.Searched().News());
}

void ProgramSearch::OnNews() {
  if (auto answer = search_.Poll()) answered_(std::move(*answer));
  if (const auto survey = search_.PollSurvey()) surveyed_(*survey);
  browsed_();
}

void ProgramSearch::Ask(TextView typed, std::size_t maximum) {
  Feed();
  search_.Ask(typed, maximum);
}

bool ProgramSearch::AskSurvey(SurveyQuestion question) {
  Feed();
  search_.AskSurvey(std::move(question));
  return search_.IsUsable();
}

std::optional<std::vector<Text>> ProgramSearch::Names(TextView typed) {
  Feed();
  return search_.Names(typed);
}

}  // namespace jotlets

// What the program does for the file of the stored notes.
#include "app/win/commands/import_folder.h"
#include "app/win/program.h"
#include "res/resource.h"
#include "store/store_rescue.h"
#include "ui/job_dialog.h"
#include "ui/screen.h"

namespace jotlets {

void Program::OpenStore() { storeState_ = store_.Open(desk_.Folder()); }

void Program::RescueStore() {
  if (storeState_ != StoreState::kDamaged && storeState_ != StoreState::kGone) return;
  StoreRescue rescue(system_.files, system_.log, desk_.Folder(), MinuteStamp(system_.clock.Now().local),
                     resources_.String(IDS_RESCUED_CATEGORY));
  const Job::State state = RunJob(window_.Handle(), resources_, IDS_STORE_RESCUE_RUNS, rescue, false);
  if (state_.exiting) return;
  const bool done = state == Job::State::kDone;
  tray_.Balloon(kVersionText,
                done ? ReplaceAll(resources_.String(IDS_STORE_RESCUED), u"%s", IntText(rescue.Saved()))
                     : ReplaceAll(resources_.String(IDS_STORE_NOT_RESCUED), u"%s", rescue.Reason()));
  if (done) OpenStore();
}

void Program::ServeManaging() {
  managed_.ServeSurvey([this](SurveyQuestion question) { return search_.AskSurvey(std::move(question)); });
  search_.WatchSurveys([this](const SearchSurvey& survey) { managed_.OnSurvey(survey); });
  search_.WatchBrowser([this] { managed_.OnBrowsed(); });
  managed_.ServeImport([this](HWND owner, const Text& path) {
    managed_.Steps().AddImport(
        ImportNotes(owner, resources_, path,
                    {system_.files, system_.ansi, system_.log, desk_, store_, VirtualScreen().Width()}));
    if (!state_.exiting) desk_.Changed();
  });
}

void Program::OnStoreDamaged() {
  // Once is enough where nothing could be done about it.
  if (storeState_ == StoreState::kDamaged) return;
  search_.Stop();
  store_.Close();
  storeState_ = StoreState::kDamaged;
  RescueStore();
  if (state_.exiting) return;
  store_.Settle([this](TextView id) { return desk_.Lists().WhereIs(id).has_value(); });
  search_.Start();
  desk_.Changed();
}

}  // namespace jotlets

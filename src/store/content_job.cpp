#include "store/content_job.h"

#include "data/data_folder.h"
#include "store/note_store.h"

namespace jotlets {

void ContentJob::Start(TextView dataFolder, std::vector<ContentClaim> claims) {
  Stop();
  stops_ = false;
  worker_.Start();
  worker_.Post([this, folder = Text(dataFolder), claims = std::move(claims)] { Check(folder, claims); });
}

void ContentJob::Stop() {
  stops_ = true;
  worker_.Stop();
  reader_.Close();
  report_.reset();
}

std::optional<ContentJob::Report> ContentJob::Finished() {
  const std::scoped_lock lock(mutex_);
  return std::exchange(report_, std::nullopt);
}

void ContentJob::Check(const Text& folder, const std::vector<ContentClaim>& claims) {
  Report report;
  report.leftovers = LeftoversIn(files_, folder);
  ContentFiles contents(files_, folder);
  for (const ContentClaim& claim : claims) {
    Text missing = contents.Claim(claim);
    if (!missing.empty()) report.missing.push_back(std::move(missing));
  }
  for (Text& stray : contents.StrayObjects()) report.missing.push_back(std::move(stray));
  reader_.SetPath(folder + Text(kStoreFileName));
  const bool whole = ClaimStored(contents, report);
  reader_.Close();
  if (stops_) return;
  if (whole) report.orphans = contents.Unclaimed();
  {
    const std::scoped_lock lock(mutex_);
    report_ = std::move(report);
  }
  wake_();
}

// False when not all stored notes are known.
bool ContentJob::ClaimStored(ContentFiles& contents, Report& report) {
  constexpr std::int64_t kAtOnce = 1000;
  std::int64_t last = 0;
  while (!stops_) {
    const auto names = reader_.NamesAfter(last, kAtOnce);
    if (!names) return false;
    if (names->empty()) return true;
    for (const StoredName& name : *names) {
      Text missing = contents.Claim({u"Stored", name.id, name.isImage});
      if (!missing.empty()) report.missing.push_back(std::move(missing));
    }
    last = names->back().key;
  }
  return false;
}

}  // namespace jotlets

#include "store/stored_browser.h"

#include "data/data_folder.h"

namespace jotlets {

void StoredBrowser::Stop() {
  End();
  folder_.clear();
}

void StoredBrowser::End() {
  sorts_.Stop();
  reads_.Stop();
  sorter_.Close();
  reader_.Close();
  runs_ = false;
  order_.reset();
  listed_ = {};
  told_ = {};
}

void StoredBrowser::Run() {
  const Text path = folder_ + Text(kStoreFileName);
  sorter_.SetPath(path);
  reader_.SetPath(path);
  sorts_.Start([this] { return Sort(); });
  reads_.Start();
  runs_ = true;
}

void StoredBrowser::Ask(const StoredOrder& order, const std::vector<ListedNote>& listed) {
  if (folder_.empty()) return;
  if (!runs_) Run();
  if (order_ != order) {
    sorts_.Post([this, order, listed] { sorter_.Begin(order, listed); });
  } else if (listed_ != listed) {
    sorts_.Post([this, listed] { sorter_.Follow({}, listed); });
  }
  order_ = order;
  listed_ = listed;
}

void StoredBrowser::Follow(const StoredChanges& changes) {
  if (order_ && !changes.IsEmpty())
    sorts_.Post([this, changes, listed = listed_] { sorter_.Follow(changes, listed); });
}

bool StoredBrowser::Sort() {
  const bool goesOn = sorter_.Step();
  bool news = false;
  {
    const std::lock_guard lock(mutex_);
    news = told_.listing != sorter_.Listing();
    told_.listing = sorter_.Listing();
  }
  if (news) wake_();
  return goesOn;
}

std::shared_ptr<const StoredListing> StoredBrowser::Listing() {
  const std::lock_guard lock(mutex_);
  return told_.listing;
}

void StoredBrowser::Read(std::vector<std::int64_t> keys) {
  reads_.Post([this, wanted = std::move(keys)] { Fetch(wanted); });
}

void StoredBrowser::Fetch(std::vector<std::int64_t> keys) {
  Page page;
  for (const std::int64_t key : keys) {
    auto notes = reader_.At(key);
    // What could not be read is asked for again when it is seen again.
    if (!notes) continue;
    page.keys.push_back(key);
    for (StoredNote& note : *notes) page.notes.push_back(std::move(note));
  }
  {
    const std::lock_guard lock(mutex_);
    told_.pages.push_back(std::move(page));
  }
  wake_();
}

std::vector<StoredBrowser::Page> StoredBrowser::Pages() {
  const std::lock_guard lock(mutex_);
  return std::exchange(told_.pages, {});
}

}  // namespace jotlets

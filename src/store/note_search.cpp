#include "store/note_search.h"

#include <chrono>
#include <future>
#include <unordered_set>
#include <utility>

#include "store/search_words.h"

namespace jotlets {
namespace {

constexpr std::chrono::seconds kLongestWait{2};
constexpr std::size_t kMaximumNames = 100'000;
// An index that is damaged again and again lies on a disk that cannot be trusted.
constexpr int kMaximumRenewals = 3;

}  // namespace

void NoteSearch::Start(TextView dataFolder) {
  Stop();
  folder_ = dataFolder;
  failureTold_ = false;
  searcher_.Start();
  indexer_.Start([this] { return Build(); });
  indexer_.Post([this, notes = context_.notes()]() mutable { OpenIndex(std::move(notes)); });
}

void NoteSearch::Stop() {
  EndSearch();
  indexer_.Stop();
  searcher_.Stop();
  builder_.Close();
  reads_.Close();
  index_.Close();
  folder_.clear();
  state_ = State::kClosed;
  answer_.reset();
}

void NoteSearch::EndSearch() {
  ++asked_;
  if (searches_) reads_.Interrupt();
}

void NoteSearch::Say(State state, Text line) {
  {
    const std::lock_guard lock(mutex_);
    state_ = state;
    lines_.push_back(std::move(line));
  }
  context_.wake();
}

void NoteSearch::OpenIndex(std::vector<SearchEntry> notes) {
  const Text path = folder_ + Text(kSearchIndexName);
  if (!index_.Open(path))
    return Say(State::kFailed, u"The search index '" + path + u"' cannot be used: " + index_.Fault());
  searcher_.Post([this, path] { reads_.OpenToSearch(path); });
  builder_.Begin(folder_, std::move(notes));
  Say(State::kBuilding, u"Starting to generate and cache titles and content...");
}

bool NoteSearch::Build() {
  if (!index_.IsOpen() || state_ != State::kBuilding) return false;
  if (builder_.Step()) return true;
  if (index_.IsDamaged() || builder_.HasFailed()) {
    Fail();
  } else {
    Say(State::kComplete, u"...finished generating titles and filling cache");
  }
  return false;
}

// Whoever opened it makes it anew: that takes a list of all notes.
void NoteSearch::SayDamaged() {
  {
    const std::lock_guard lock(mutex_);
    damaged_ = true;
  }
  context_.wake();
}

void NoteSearch::Fail() {
  if (index_.IsDamaged()) return SayDamaged();
  if (!std::exchange(failureTold_, true))
    Say(state_, u"The search index could not be written: " + index_.Fault());
}

void NoteSearch::Tell(SearchNews news) {
  if (news.IsEmpty()) return;
  indexer_.Post([this, news = std::move(news)] {
    if (index_.IsOpen() && !builder_.Apply(news)) Fail();
  });
}

void NoteSearch::Ask(TextView typed, std::size_t maximum) {
  EndSearch();
  question_ = {Text(typed), maximum, asked_};
  searcher_.Post([this, question = question_] { Answer(question); });
}

void NoteSearch::Post(SearchAnswer answer, int number) {
  {
    const std::lock_guard lock(mutex_);
    if (number != asked_) return;
    answer_ = std::move(answer);
  }
  context_.wake();
}

void NoteSearch::Answer(const Question& question) {
  if (!IsAsked(question) || !reads_.IsOpen()) return;
  searches_ = true;
  const SearchQuery query = ParseSearchQuery(question.typed);
  const SearchSpan span = SpanOf(query, context_.clock);
  SearchAnswer answer;
  answer.typed = question.typed;
  answer.results = reads_.Search(query, span, question.maximum);
  answer.more = answer.results.size() >= question.maximum;
  answer.all = answer.more || FullTextExpression(query, false).empty();
  Post(answer, question.number);
  if (!answer.all && IsAsked(question)) {
    std::unordered_set<Text> known;
    for (const SearchResult& result : answer.results) known.insert(result.note.id);
    for (SearchResult& result : reads_.Scan(query, span, question.maximum)) {
      answer.more = answer.results.size() >= question.maximum;
      if (!answer.more && known.insert(result.note.id).second) answer.results.push_back(std::move(result));
    }
    answer.all = true;
    if (answer.results.empty()) answer.searched = reads_.Count();
    Post(std::move(answer), question.number);
  }
  searches_ = false;
  if (reads_.IsDamaged()) SayDamaged();
}

std::optional<SearchAnswer> NoteSearch::Poll() {
  std::vector<Text> lines;
  std::optional<SearchAnswer> answer;
  bool damaged = false;
  {
    const std::lock_guard lock(mutex_);
    lines.swap(lines_);
    answer.swap(answer_);
    damaged = std::exchange(damaged_, false);
  }
  for (const Text& line : lines) context_.log.Write(kLogLifecycle, line);
  if (damaged && IsRunning()) {
    const Text folder = folder_;
    Stop();
    const Text path = folder + Text(kSearchIndexName);
    context_.log.Write(kLogLifecycle, u"The search index '", path, u"' is damaged and made anew");
    index_.Discard(path);
    if (++renewals_ <= kMaximumRenewals) Start(folder);
  }
  // Before the index was open there was nobody to answer.
  const bool opened = !lines.empty() && !question_.typed.empty() && !answer;
  if ((opened || damaged) && IsRunning()) Ask(Text(question_.typed), question_.maximum);
  return answer;
}

std::optional<std::vector<Text>> NoteSearch::Names(TextView typed) {
  {
    const std::lock_guard lock(mutex_);
    if (state_ != State::kComplete) return std::nullopt;
  }
  using Found = std::vector<Text>;
  const auto promise = std::make_shared<std::promise<Found>>();
  std::future<Found> found = promise->get_future();
  const SearchQuery query = ParseSearchQuery(typed);
  const SearchSpan span = SpanOf(query, context_.clock);
  // Behind what has been told so far.
  indexer_.Post([this, promise, query, span] {
    searcher_.Post(
        [this, promise, query, span] { promise->set_value(reads_.Names(query, span, kMaximumNames)); });
  });
  if (found.wait_for(kLongestWait) != std::future_status::ready) return std::nullopt;
  return found.get();
}

}  // namespace jotlets

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
// What could not be read or written is tried again when somebody asks, but not at each key.
constexpr std::int64_t kSecondsBetweenTries = 10;
// So much of the news is one piece of work: other work comes in between, and the end.
constexpr std::size_t kPartOfNews = 100;

template <typename Item>
void AddParts(std::vector<Item> items, std::vector<Item> SearchNews::*member,
              std::vector<SearchNews>& parts) {
  for (std::size_t at = 0; at < items.size(); ++at) {
    if (at % kPartOfNews == 0) parts.emplace_back();
    (parts.back().*member).push_back(std::move(items[at]));
  }
}

// In the order in which news are applied.
std::vector<SearchNews> PartsOf(SearchNews news) {
  std::vector<SearchNews> parts;
  AddParts(std::move(news.gone), &SearchNews::gone, parts);
  AddParts(std::move(news.stored), &SearchNews::stored, parts);
  AddParts(std::move(news.notes), &SearchNews::notes, parts);
  return parts;
}

}  // namespace

void NoteSearch::Start(TextView dataFolder) {
  Stop();
  folder_ = dataFolder;
  toldFault_.clear();
  stops_ = false;
  nextTry_ = context_.clock.Now().utc + kSecondsBetweenTries;
  searcher_.Start();
  indexer_.Start([this] { return Build(); });
  indexer_.Post([this, notes = context_.notes()]() mutable { OpenIndex(std::move(notes)); });
}

void NoteSearch::Stop() {
  stops_ = true;
  EndSearch();
  indexer_.Stop();
  searcher_.Stop();
  builder_.Close();
  reads_.Close();
  index_.Close();
  builds_ = false;
  folder_.clear();
  state_ = State::kClosed;
  damage_ = {};
}

// From here on no answer comes to what was asked before.
void NoteSearch::EndSearch() {
  {
    const std::lock_guard lock(mutex_);
    ++asked_;
    told_.answer.reset();
  }
  if (searches_) reads_.Interrupt();
}

NoteSearch::State NoteSearch::CurrentState() {
  const std::lock_guard lock(mutex_);
  return state_;
}

void NoteSearch::Say(State state, Text line) {
  {
    const std::lock_guard lock(mutex_);
    if (state_ != State::kUnusable) state_ = state;
    told_.lines.push_back(std::move(line));
  }
  context_.wake();
}

void NoteSearch::OpenIndex(std::vector<SearchEntry> notes) {
  const Text path = folder_ + Text(kSearchIndexName);
  if (!index_.Open(path))
    return SayUnusable(u"The search index '" + path + u"' cannot be used: " + index_.Fault());
  searcher_.Post([this, path] { OpenToSearch(path); });
  builder_.Begin(folder_, std::move(notes));
  builds_ = true;
  Say(State::kBuilding, u"Starting to generate and cache titles and content...");
}

void NoteSearch::OpenToSearch(const Text& path) {
  if (!reads_.OpenToSearch(path))
    SayUnusable(u"The search index '" + path + u"' cannot be searched: " + reads_.Fault());
}

bool NoteSearch::Build() {
  if (!index_.IsOpen() || !builds_) return false;
  if (builder_.Step()) return true;
  builds_ = false;
  if (index_.IsDamaged() || !builder_.Fault().empty()) {
    Fail();
  } else {
    toldFault_.clear();
    Say(State::kComplete, u"...finished generating titles and filling cache");
  }
  return false;
}

// After a failure everything is compared once more: what was told meanwhile may not be in the index.
void NoteSearch::BuildAgain() {
  const std::int64_t now = context_.clock.Now().utc;
  if (!IsRunning() || CurrentState() != State::kIncomplete || now < nextTry_) return;
  nextTry_ = now + kSecondsBetweenTries;
  {
    const std::lock_guard lock(mutex_);
    state_ = State::kBuilding;
  }
  indexer_.Post([this, notes = context_.notes()]() mutable {
    builder_.Begin(folder_, std::move(notes));
    builds_ = true;
  });
}

// Whoever opened it makes it anew: that takes a list of all notes.
void NoteSearch::SayDamaged() {
  {
    const std::lock_guard lock(mutex_);
    damage_.index = true;
  }
  context_.wake();
}

void NoteSearch::Fail() {
  if (index_.IsDamaged()) return SayDamaged();
  {
    const std::lock_guard lock(mutex_);
    if (state_ != State::kUnusable) state_ = State::kIncomplete;
    damage_.store = damage_.store || builder_.StoreIsDamaged();
  }
  if (std::exchange(toldFault_, builder_.Fault()) != builder_.Fault())
    Say(State::kIncomplete, Text(builder_.Fault()));
}

void NoteSearch::Apply(const SearchNews& news) {
  // While it is being filled the failure is kept, and told at the end.
  if (index_.IsOpen() && !builder_.Apply(news) && (!builds_ || index_.IsDamaged())) Fail();
}

void NoteSearch::Tell(SearchNews news) {
  for (SearchNews& part : PartsOf(std::move(news)))
    indexer_.Post([this, told = std::move(part)] { Apply(told); });
}

void NoteSearch::Ask(TextView typed, std::size_t maximum) {
  question_ = {Text(typed), maximum, 0, !typed.empty()};
  AskAgain();
}

void NoteSearch::AskSurvey(SurveyQuestion question) {
  {
    const std::lock_guard lock(mutex_);
    told_.survey.reset();
  }
  const bool waits = !question.typed.empty();
  survey_ = {std::move(question), waits};
  AskAgain();
}

// What is asked at the same time shares one thread: each new question ends what is being looked for.
void NoteSearch::AskAgain() {
  EndSearch();
  question_.number = asked_;
  if (!question_.waits && !survey_.waits) return;
  BuildAgain();
  const bool isUsable = CurrentState() != State::kUnusable;
  if (question_.waits && isUsable)
    searcher_.Post([this, question = question_] { Look(question.number, [&] { Answer(question); }); });
  if (survey_.waits && isUsable)
    searcher_.Post([this, question = survey_.question, number = question_.number] {
      Look(number, [&] { Answer(question, number); });
    });
  if (!question_.waits || isUsable) return;
  SearchAnswer answer;
  answer.typed = question_.typed;
  answer.all = true;
  answer.cannotLook = true;
  Post(std::move(answer), question_.number);
}

void NoteSearch::Answer(const SurveyQuestion& question, int number) {
  std::optional<SearchSurvey> survey = reads_.Survey(question, context_.clock);
  {
    const std::lock_guard lock(mutex_);
    if (!survey || number != asked_) return;
    told_.survey = std::move(survey);
  }
  context_.wake();
}

void NoteSearch::Post(SearchAnswer answer, int number) {
  {
    const std::lock_guard lock(mutex_);
    if (number != asked_) return;
    told_.answer = std::move(answer);
  }
  context_.wake();
}

// Looks for what is still wanted, and is interrupted as soon as it is not.
void NoteSearch::Look(int number, const std::function<void()>& look) {
  searches_ = true;
  reads_.Resume();
  if (number == asked_ && reads_.IsOpen()) look();
  searches_ = false;
  if (reads_.IsDamaged()) SayDamaged();
}

void NoteSearch::Answer(const Question& question) {
  const SearchQuery query = ParseSearchQuery(question.typed);
  const SearchSpan span = SpanOf(query, context_.clock);
  SearchAnswer answer;
  answer.typed = question.typed;
  const auto post = [&](bool all) {
    answer.more = answer.results.size() >= question.maximum;
    answer.all = all || answer.more || answer.cannotLook;
    if (answer.all && answer.results.empty()) answer.searched = reads_.Count();
    // One that is damaged is made anew, and asked again.
    if (!reads_.IsDamaged()) Post(answer, question.number);
  };
  if (SearchIndex::Results found = reads_.Search(query, span, question.maximum)) {
    answer.results = std::move(*found);
  } else {
    answer.cannotLook = true;
  }
  post(FullTextExpression(query, false).empty());
  if (answer.all) return;
  std::unordered_set<Text> known;
  for (const SearchResult& result : answer.results) known.insert(result.note.id);
  SearchIndex::Results inside = reads_.Scan(query, span, question.maximum);
  answer.cannotLook = !inside;
  for (SearchResult& result : inside ? *inside : std::vector<SearchResult>())
    if (answer.results.size() < question.maximum && known.insert(result.note.id).second)
      answer.results.push_back(std::move(result));
  post(true);
}

// As often as its disk may spoil it.
void NoteSearch::Renew() {
  const Text folder = folder_;
  const Text path = folder + Text(kSearchIndexName);
  Stop();
  index_.Discard(path);
  if (++renewals_ <= kMaximumRenewals) {
    context_.log.Write(kLogLifecycle, u"The search index '", path, u"' is damaged and made anew");
    return Start(folder);
  }
  context_.log.Write(kLogLifecycle, u"The search index '", path, u"' is damaged again and given up");
  state_ = State::kUnusable;
}

std::optional<SearchAnswer> NoteSearch::Poll() {
  std::vector<Text> lines;
  std::optional<SearchAnswer> answer;
  bool damaged = false;
  {
    const std::lock_guard lock(mutex_);
    lines.swap(told_.lines);
    answer.swap(told_.answer);
    damaged = std::exchange(damage_.index, false);
  }
  for (const Text& line : lines) context_.log.Write(kLogLifecycle, line);
  if (answer && answer->all) question_.waits = false;
  damaged = damaged && IsRunning();
  if (damaged) Renew();
  // Before the index was open there was nobody to answer, and before it was complete not all was known.
  if (damaged || !lines.empty()) {
    question_.waits = !question_.typed.empty();
    survey_.waits = !survey_.question.typed.empty();
    AskAgain();
  }
  return answer;
}

std::optional<SearchSurvey> NoteSearch::PollSurvey() {
  const std::lock_guard lock(mutex_);
  if (told_.survey) survey_.waits = false;
  return std::exchange(told_.survey, std::nullopt);
}

bool NoteSearch::FoundDamagedStore() {
  const std::lock_guard lock(mutex_);
  return std::exchange(damage_.store, false) && IsRunning();
}

std::optional<std::vector<Text>> NoteSearch::Names(TextView typed) {
  BuildAgain();
  if (CurrentState() != State::kComplete) return std::nullopt;
  using Found = std::optional<std::vector<Text>>;
  const auto promise = std::make_shared<std::promise<Found>>();
  std::future<Found> found = promise->get_future();
  const SearchQuery query = ParseSearchQuery(typed);
  const SearchSpan span = SpanOf(query, context_.clock);
  // A long answer would keep it waiting, and is looked for again afterwards.
  EndSearch();
  const auto look = [this, promise, query, span, number = asked_.load()] {
    Found names;
    Look(number, [&] { names = reads_.Names(query, span, kMaximumNames); });
    promise->set_value(std::move(names));
  };
  // Behind what has been told so far.
  indexer_.Post([this, look] { searcher_.Post(look); });
  const bool inTime = found.wait_for(kLongestWait) == std::future_status::ready;
  AskAgain();
  // What was told last may have failed.
  return inTime && CurrentState() == State::kComplete ? found.get() : std::nullopt;
}

}  // namespace jotlets

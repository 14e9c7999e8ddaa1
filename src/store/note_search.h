// The search over all notes: one thread keeps the index true, one searches in it, and nobody waits for
// either.
#pragma once

#include <atomic>
#include <functional>
#include <memory>

#include "base/clock.h"
#include "base/log.h"
#include "base/worker.h"
#include "store/search_builder.h"

namespace jotlets {

/// What has been found of what was asked last.
struct SearchAnswer {
  Text typed;
  std::vector<SearchResult> results;
  bool all = false;           // nothing more will come
  bool more = false;          // of what there is, only the first are here
  std::int64_t searched = 0;  // how many notes were looked at, when nothing was found
  bool cannotLook = false;    // the index cannot be used: nobody knows what there is
};

/// All calls are made on one thread, and so is `Poll`, after `wake` has been called on any.
class NoteSearch {
 public:
  struct Context {
    const Files& files;
    const Clock& clock;
    Log& log;
    std::function<std::vector<SearchEntry>()> notes;  // all that are in a list now
    std::function<void()> wake;
  };

  explicit NoteSearch(Context context)
      : context_(std::move(context)), builder_(context_.files, index_, stops_) {}
  ~NoteSearch() { Stop(); }
  NoteSearch(const NoteSearch&) = delete;
  NoteSearch& operator=(const NoteSearch&) = delete;

  /// Opens the index in the data folder and makes it true in the background.
  void Start(TextView dataFolder);
  /// The files are let go of, as soon as what is being read is. What is not in the index yet comes in at the
  /// next start.
  void Stop();
  bool IsRunning() const { return !folder_.empty(); }
  /// Whether the index can be used, or may be when it has been read.
  bool IsUsable() { return CurrentState() != State::kUnusable; }
  void Tell(SearchNews news);

  /// Asks for at most `maximum` notes; what was asked before is given up, and nothing else is done when
  /// nothing is typed. `Poll` brings the answer, in up to two parts, and a new one when the index has become
  /// complete.
  void Ask(TextView typed, std::size_t maximum);
  /// Asks where the notes are that hold the words, beside what else is asked; nothing is done when nothing is
  /// typed. `PollSurvey` brings the answer, and a new one when the index has become complete.
  void AskSurvey(SurveyQuestion question);
  /// After `Poll`.
  std::optional<SearchSurvey> PollSurvey();
  /// Writes to the log what the threads had to say; the answer, when there is news of it.
  std::optional<SearchAnswer> Poll();
  /// Whether the store turned out to be damaged since the last call.
  bool FoundDamagedStore();
  /// The ids, of stored ones the keys, of all notes that hold the words. Nothing as long as the index is not
  /// complete, when it cannot be read, and when the answer takes too long.
  std::optional<std::vector<Text>> Names(TextView typed);

 private:
  struct Question {
    Text typed;
    std::size_t maximum = 0;
    int number = 0;
    bool waits = false;  // for more of an answer
  };
  struct Survey {
    SurveyQuestion question;
    bool waits = false;
  };
  enum class State {
    kClosed,
    kBuilding,
    kComplete,
    kIncomplete,  // something could not be read or written: it is tried again
    kUnusable,    // until the next start
  };

  void OpenIndex(std::vector<SearchEntry> notes);
  void OpenToSearch(const Text& path);
  bool Build();
  void BuildAgain();
  void Apply(const SearchNews& news);
  void Answer(const Question& question);
  void Answer(const SurveyQuestion& question, int number);
  void Post(SearchAnswer answer, int number);
  void Look(int number, const std::function<void()>& look);
  State CurrentState();
  void Say(State state, Text line);
  void SayUnusable(Text line) { Say(State::kUnusable, std::move(line)); }
  void Fail();
  void SayDamaged();
  void EndSearch();
  void AskAgain();
  void Renew();

  Context context_;
  Text folder_;  // empty while it is closed
  Question question_;
  Survey survey_;
  int renewals_ = 0;
  std::int64_t nextTry_ = 0;

  // Of the thread that changes the index.
  SearchIndex index_;
  std::atomic<bool> stops_ = false;
  SearchBuilder builder_;
  bool builds_ = false;
  Text toldFault_;

  // Of the thread that searches.
  SearchIndex reads_;
  std::atomic<bool> searches_ = false;
  std::atomic<int> asked_ = 0;  // changed with the mutex

  // What the threads have to say.
  std::mutex mutex_;
  struct Told {
    std::vector<Text> lines;
    std::optional<SearchAnswer> answer;
    std::optional<SearchSurvey> survey;
  };
  Told told_;
  State state_ = State::kClosed;
  struct Damage {
    bool index = false;
    bool store = false;
  };
  Damage damage_;

  Worker searcher_;
  Worker indexer_;  // goes first
};

}  // namespace jotlets

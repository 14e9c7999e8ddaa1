// The full-text index of all notes, in a file of its own. It holds nothing that is nowhere else: one that is
// damaged, or of another version, is thrown away and filled anew.
//
// Two may have the file open, one that changes it and one that searches.
#pragma once

#include <atomic>
#include <optional>
#include <vector>

#include "base/geometry.h"
#include "store/database.h"
#include "store/search_hits.h"
#include "store/search_survey.h"

namespace jotlets {

inline constexpr TextView kSearchIndexName = u"search.idx";

/// Rows of the index stand in the order of the changes: each second has room for 1 << 4 notes.
inline constexpr int kSearchRowBits = 4;

/// What the index knows of a note besides its text.
struct IndexedNote {
  Text id;
  SearchPlace place = SearchPlace::kDesktop;
  std::int64_t key = 0;  // of a stored one
  bool image = false;
  std::int32_t changed = 0;  // seconds since 1970 UTC
  Colour colour;
  Text title;
  Text category;
  std::int64_t stamp = 0;  // tells one state of its content from another
  friend bool operator==(const IndexedNote&, const IndexedNote&) = default;
};

struct SearchResult {
  IndexedNote note;
  std::vector<TextPart> titleHits;
  MarkedText snippet;
  Text beginning;  // of the text, for the title of a note that has none
};

/// When notes were changed, seconds since 1970 UTC: the first moment that counts, and the first that does not
/// any more.
struct SearchSpan {
  std::int64_t first = 0;
  std::int64_t end = INT64_MAX;
};
SearchSpan SpanOf(const SearchQuery& query, const Clock& clock);

class SearchIndex {
 public:
  /// Opens the file at `path`, with separators as the system has them. One that does not serve is replaced by
  /// an empty one. False when that is not to be had; `Fault` tells why.
  bool Open(TextView path);
  /// Opens one that is there already, as it is.
  bool OpenToSearch(TextView path);
  void Close();
  /// Throws the file away, for the next `Open` to make it anew.
  void Discard(TextView path);
  bool IsOpen() const { return database_.IsOpen(); }
  Text Fault() const { return database_.Fault(); }
  /// What it holds can no longer be trusted.
  bool IsDamaged() const { return damaged_; }

  /// Changes are seen by who searches when they are committed.
  void Begin();
  bool Commit();
  /// What has been committed goes to its place in the file, now and then: to be called when nobody waits.
  void Settle() { database_.EmptyLog(); }
  /// Everything since `Begin` is undone: a note that was taken in by half would never leave the index again.
  void RollBack();
  /// What the index has of a note, by its folded id.
  std::optional<IndexedNote> Find(TextView id);
  /// Takes a note in, in the place of what was known of it.
  bool Put(const IndexedNote& note, TextView text);
  /// The same for a note whose text has not changed.
  bool PutRecord(const IndexedNote& note);
  bool Remove(TextView id);
  /// Removes the stored note of this key; true when there is none.
  bool RemoveKey(std::int64_t key);
  /// The notes with the next folded ids after `id`, at most `maximum`; nothing when they cannot be read.
  std::optional<std::vector<IndexedNote>> NotesAfter(TextView id, std::size_t maximum);
  std::int64_t Count();
  /// Whether it knows of a stored note.
  bool HoldsStored();

  // Nothing when the index could not be read, and when `Interrupt` came in between.
  using Results = std::optional<std::vector<SearchResult>>;
  /// The notes that hold the words: those with all of them in their titles first, then the others, the
  /// latest first.
  Results Search(const SearchQuery& query, const SearchSpan& span, std::size_t maximum);
  /// The notes that hold them anywhere, be it inside of words, the latest first. Looks at all notes.
  Results Scan(const SearchQuery& query, const SearchSpan& span, std::size_t maximum);
  /// The ids, of stored ones the keys, of the notes that hold the words, the latest first.
  std::optional<std::vector<Text>> Names(const SearchQuery& query, const SearchSpan& span,
                                         std::size_t maximum);
  /// Counts the notes that hold the words, up to some ten thousand.
  std::optional<SearchSurvey> Survey(const SurveyQuestion& question, const Clock& clock);
  /// Ends what is being looked for, from another thread, and whatever comes until `Resume`.
  void Interrupt();
  void Resume() { interrupted_ = false; }

 private:
  using Rows = std::vector<std::int64_t>;

  bool OpenFile(TextView path);
  bool HasForm();
  void Prepare();
  bool Done(DatabaseResult result);
  struct Known {
    std::int64_t row = 0;
    IndexedNote note;
  };
  std::optional<Known> FindRow(TextView id);
  std::optional<Known> KnownAt(Statement& select);
  std::int64_t FreeRow(std::int32_t changed);
  bool Insert(std::int64_t row, const IndexedNote& note);
  bool RemoveRow(const Known& known);
  bool ChangeWords(std::int64_t row, const IndexedNote& note, TextView text, bool removes);
  Text TextOf(std::int64_t row);
  std::optional<Rows> Select(const SearchQuery& query, const SearchSpan& span, std::size_t maximum,
                             bool titles);
  std::optional<Rows> ScanRows(const SearchQuery& query, const SearchSpan& span, std::size_t maximum);
  Results ResultsOf(const std::optional<Rows>& rows, const SearchQuery& query);

  Database database_;
  bool damaged_ = false;
  std::atomic<bool> interrupted_ = false;
  std::uint32_t tries_ = 0;  // for a row that is free
  Statement find_;
  Statement findRow_;
  Statement isTaken_;
  Statement text_;
  Statement insertNote_;
  Statement insertText_;
  Statement insertWords_;
  Statement removeWords_;
  Statement insertTitle_;
  Statement removeTitle_;
};

}  // namespace jotlets

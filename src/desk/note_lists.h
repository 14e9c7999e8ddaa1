// Where notes are: on the desktop, waiting for a window, asleep, or closed; and the stacks. Only the desk
// changes these; everybody else reads them.
#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "data/content_files.h"
#include "data/data_file.h"
#include "data/record_list.h"
#include "data/stack_record.h"

namespace jotlets {

/// How giving a note another id ended.
enum class Renamed { kYes, kTaken, kNoName, kFailed };

enum class NoteList { kDesktop, kAttached, kSleeping, kClosed };

/// The notes that have a window, in list order, each found by its id at once. A record is shared with its
/// window, which may outlive its place in the list while it serves a message.
class OpenNoteList {
 public:
  void Add(std::shared_ptr<JotletData> record);
  /// Takes the note of this id off the list; nothing when there is none.
  std::shared_ptr<JotletData> Remove(TextView id);
  /// The note of this id, without regard to case; nullptr when there is none.
  JotletData* Find(TextView id) const;
  void Rename(TextView id, TextView newId);
  /// The record of this note has been changed, or its content.
  void MarkChanged(TextView id);
  ChangedNotes& Changes() { return changes_; }

  auto begin() const { return records_.begin(); }
  auto end() const { return records_.end(); }
  std::size_t size() const { return records_.size(); }
  bool empty() const { return records_.empty(); }

 private:
  std::vector<std::shared_ptr<JotletData>> records_;
  std::unordered_map<Text, JotletData*> byId_;  // by folded id
  ChangedNotes changes_;
};

std::vector<Text> IdsOf(const OpenNoteList& records);

struct NoteLists {
  OpenNoteList desktop;
  RecordList attached;
  RecordList sleeping;  // the recurring ones among them
  RecordList closed;    // the latest first
  // Deleted ones that can still be had back, of which nothing is saved. They are in no list for whoever asks.
  RecordList discarded;
  std::vector<Text> verbatim;
  std::vector<StackRecord> stacks;
  bool stacksChanged = false;

  /// Moves what came, went or may have been changed in any list since the last call for this reader: folded
  /// ids, and whether the content is a picture.
  void MoveChangesTo(std::unordered_map<Text, bool>& into, ChangeReader reader);

  /// Which list has a note of this id, without regard to case.
  std::optional<NoteList> WhereIs(TextView id) const;

  /// The record of a note in any list; nullptr when there is none.
  const JotletData* FindRecord(TextView id) const;

  /// The stack of a number; nullptr when there is none.
  const StackRecord* FindStack(std::int32_t number) const;

  /// All notes in the order of the content check.
  std::vector<ContentClaim> Claims() const;
};

}  // namespace jotlets

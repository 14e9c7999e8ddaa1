// The notes that have no window, and the stacks: what the data file holds beside the open notes.
#pragma once

#include <vector>

#include "data/data_file.h"
#include "data/jotlet_data.h"
#include "data/loading.h"
#include "data/sleeping_list.h"
#include "data/stack_record.h"

namespace jotlets {

class JotletLists {
 public:
  std::vector<JotletData> attached;
  SleepingList sleeping;
  std::vector<Text> verbatim;
  std::vector<JotletData> deleted;  // closed notes, the latest first
  std::vector<StackRecord> stacks;

  /// Takes everything of a parsed data file but the notes that belong on the desktop, which are returned.
  std::vector<JotletData> Take(DataFile file);

  /// Adds a closed note in front. What falls off the end of `keepDeleted` notes is deleted for good and
  /// returned.
  std::vector<JotletData> AddClosed(JotletData record, std::int32_t closedAt, std::int32_t keepDeleted);

  /// Takes the closed notes with these ids, without regard to case, off the list and returns them in its
  /// order.
  std::vector<JotletData> TakeClosed(const std::vector<Text>& ids);

  /// All notes in the order of the content check, the open ones given.
  std::vector<NotesOfKind> ByKind(std::vector<const JotletData*> desktop) const;

  /// The stack of a number; nullptr when there is none.
  StackRecord* FindStack(std::int32_t number);
  const StackRecord* FindStack(std::int32_t number) const;
  /// No note of the lists belongs to the stack of this number any more; those that were hidden in it will be
  /// seen again.
  void LeaveStack(std::int32_t number);

  /// Whether any of the lists holds a note of this id, without regard to case.
  bool Holds(TextView id) const;
};

/// The ids of a list, in its order.
std::vector<Text> IdsOf(const std::vector<JotletData>& records);
std::vector<Text> IdsOf(const SleepingList& records);

}  // namespace jotlets

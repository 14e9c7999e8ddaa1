// The content files of a data folder, held against the notes that claim them.
#pragma once

#include <vector>

#include "base/files.h"
#include "base/text.h"

namespace jotlets {

/// A content file that no note claims.
struct Orphan {
  Text id;
  bool isImage = false;
  friend bool operator==(const Orphan&, const Orphan&) = default;
};

/// The file of what was drawn on the picture of a content file; empty for a text.
Text ObjectsPath(TextView contentPath);

/// Copies a content file, and what was drawn on a picture if that can be copied.
FileStatus CopyContentFile(Files& files, TextView from, TextView to);

/// Removes them; missing ones are no failure.
FileStatus RemoveContentFile(Files& files, TextView path);

/// A note by its content file.
struct ContentClaim {
  TextView kind;  // "Desktop", "Attached", "Sleeping/recurring", "Closed" or "Stored"
  Text id;
  bool isImage = false;
};

class ContentFiles {
 public:
  /// Lists the files of `folder`.
  ContentFiles(const Files& files, TextView folder);

  /// A note claims its file. What the log has to say when it is missing; nothing when it is there.
  Text Claim(const ContentClaim& claim);

  /// The files that nobody has claimed, by their ids without regard to case, texts before pictures.
  std::vector<Orphan> Unclaimed() const;

  /// What the log has to say of each file with drawn objects whose picture is not there.
  std::vector<Text> StrayObjects() const;

 private:
  struct Stem {
    Text folded;
    Text written;
    bool claimed = false;
  };
  using Stems = std::vector<Stem>;  // by `folded`

  Stems List(TextView inner, TextView extension) const;

  const Files& files_;
  Text folder_;
  Stems texts_;
  Stems images_;
  Stems objects_;
};

}  // namespace jotlets

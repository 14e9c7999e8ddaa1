#include "data/loading.h"

#include <algorithm>
#include <map>
#include <unordered_set>

#include "data/content_files.h"
#include "data/data_folder.h"
#include "data/journal_replay.h"
#include "data/options_file.h"
#include "data/rtf_bytes.h"
#include "data/text_file.h"

namespace jotlets {
namespace {

constexpr TextView kKeptMark = u".kept-";

struct Reading {
  FileContent content;
  DataFile file;
  Options options;     // those of before, with what the file set
  bool whole = false;  // read without any sign of damage
};

DataFileContext ContextFor(const LoadContext& context, Options& options) {
  return {options, context.freshId, RecordTime(context.now.utc)};
}

Reading ReadDataFile(const LoadContext& context, const Text& path) {
  Reading reading;
  reading.options = context.options;
  reading.content = context.files.Read(path);
  const FileContent& content = reading.content;
  if (content.state == FileContent::State::kUnreadable) {
    context.log.Write(kLogLifecycle, u"Unable to read '", path, u"': ", content.reason);
  }
  if (content.state != FileContent::State::kRead) return reading;
  const TextFile text = DecodeTextFile(content.bytes, context.ansi);
  reading.file = ParseDataFile(text.text, ContextFor(context, reading.options));
  reading.whole = reading.file.IsWhole() && !text.damaged;
  return reading;
}

// The file itself stays until the next save replaces it, so that a kill in between leaves both.
Text KeepDamagedFile(const LoadContext& context, const Text& path, const FileContent& content) {
  const Text kept = DatedName(context.files, path, kDamagedMark, context.now.local);
  const FileStatus status = content.state == FileContent::State::kRead
                                ? context.files.Write(kept, content.bytes)
                                : context.files.Copy(path, kept);
  if (status) {
    context.log.Write(kLogLifecycle, u"Data file '", path, u"' is damaged, kept as '", kept, u"'");
    return kept;
  }
  context.log.Write(kLogLifecycle, u"Data file '", path, u"' is damaged and could not be put aside: ",
                    status.reason);
  return {};
}

// The newer of the two copies is the one of the last exit, unless the program has been killed since; the
// hourly copy is then newer. Their notes tell: the copy whose latest change is later wins.
std::int32_t LatestChange(const DataFile& file) {
  std::int32_t latest = 0;
  for (const auto* list : {&file.jotlets, &file.deleted}) {
    for (const FiledJotlet& jotlet : *list) {
      latest = std::max({latest, jotlet.record.created, jotlet.record.modified, jotlet.record.deletedTime});
    }
  }
  return latest;
}

bool HoldsNothing(const DataFile& file) {
  return file.jotlets.empty() && file.deleted.empty() && file.stacks.empty() && file.verbatim.empty();
}

struct BestCopy {
  Reading reading;
  TextView name;  // empty: there is none
};

// A whole copy is better than one that is not, and then the later one.
BestCopy FindBestCopy(const LoadContext& context, const Text& folder) {
  BestCopy best;
  for (const TextView name : {kExitCopyName, kSafetyCopyName}) {
    Reading copy = ReadDataFile(context, folder + Text(name));
    if (!copy.file.recognised || copy.file.version > kDataFileVersion) continue;
    const Reading& other = best.reading;
    const bool better = best.name.empty() || (copy.whole && !other.whole) ||
                        (copy.whole == other.whole && LatestChange(copy.file) > LatestChange(other.file));
    if (better) best = {std::move(copy), name};
  }
  return best;
}

// A file that ends in the middle of its last section looks like one with fewer notes; but all of it is the
// beginning of a copy.
bool IsBeginningOfCopy(const LoadContext& context, const Text& folder, const FileContent& content) {
  for (const TextView name : {kExitCopyName, kSafetyCopyName}) {
    if (context.files.Size(folder + Text(name)) <= content.bytes.size()) continue;
    if (context.files.Read(folder + Text(name)).bytes.starts_with(content.bytes)) return true;
  }
  return false;
}

// What a record that was cut still says is less than what a copy says of that note; and one that was cut
// before its id is whole cannot be told from those of the copy.
void DropCutRecord(DataFile& file, const std::unordered_set<Text>& inCopy) {
  if (file.cutRecord.empty()) return;
  const std::size_t id = FindIgnoreCase(file.cutRecord, u"<ID>");
  const bool named = id != Text::npos && file.cutRecord.find(u'<', id + 1) != Text::npos;
  std::vector<FiledJotlet>& list = file.deleted.empty() ? file.jotlets : file.deleted;
  if (list.empty() || (named && !inCopy.contains(FoldCase(list.back().record.id)))) return;
  list.pop_back();
}

std::unordered_set<Text> IdsOf(const DataFile& file) {
  std::unordered_set<Text> ids;
  for (const auto* list : {&file.jotlets, &file.deleted}) {
    for (const FiledJotlet& jotlet : *list) ids.insert(FoldCase(jotlet.record.id));
  }
  return ids;
}

// Adds the notes and stacks that the damaged file lacks; how many notes.
std::size_t AddMissing(DataFile& file, DataFile copy) {
  DropCutRecord(file, IdsOf(copy));
  const std::unordered_set<Text> present = IdsOf(file);
  const auto add = [&present](std::vector<FiledJotlet>& to, std::vector<FiledJotlet>& from) {
    std::size_t added = 0;
    for (FiledJotlet& jotlet : from) {
      if (present.contains(FoldCase(jotlet.record.id))) continue;
      to.push_back(std::move(jotlet));
      ++added;
    }
    return added;
  };
  const std::size_t added = add(file.jotlets, copy.jotlets) + add(file.deleted, copy.deleted);
  for (const StackRecord& stack : copy.stacks) {
    const bool known = std::any_of(file.stacks.begin(), file.stacks.end(),
                                   [&](const StackRecord& s) { return s.number == stack.number; });
    if (!known) file.stacks.push_back(stack);
  }
  if (file.verbatim.empty()) file.verbatim = std::move(copy.verbatim);
  if (file.installId.empty()) file.installId = std::move(copy.installId);
  return added;
}

void CompleteFromCopy(const LoadContext& context, const Text& folder, Reading& reading, LoadedData& loaded) {
  BestCopy best = FindBestCopy(context, folder);
  if (best.name.empty()) return;
  if (HoldsNothing(reading.file)) {
    context.log.Write(kLogLifecycle, u"Loaded '", folder, best.name, u"' instead");
    reading = std::move(best.reading);
    loaded.loadedInstead = best.name;
    return;
  }
  const std::size_t added = AddMissing(reading.file, std::move(best.reading.file));
  if (added == 0) return;
  context.log.Write(kLogLifecycle, u"Added ", added, u" jotlets of '", folder, best.name, u"'");
  loaded.loadedInstead = best.name;
}

// False when some content could not be written: the line in the data file is then the only place that has it.
bool WriteInlineContents(const LoadContext& context, const Text& folder,
                         const std::vector<FiledJotlet>& jotlets) {
  bool all = true;
  for (const FiledJotlet& jotlet : jotlets) {
    if (!jotlet.inlineContent) continue;
    const Text path = folder + Text(kRtfFolder) + jotlet.record.id + u".rtf";
    const FileStatus written = context.files.Write(path, RtfBytes(*jotlet.inlineContent));
    if (written) continue;
    context.log.Write(kLogLifecycle, u"Unable to write content file '", path, u"': ", written.reason);
    all = false;
  }
  return all;
}

// Two notes with one id would write over each other's content: the later one gets an id and a copy of its
// own.
void SeparateSharedIds(const LoadContext& context, const Text& folder, DataFile& file) {
  std::unordered_set<Text> taken;
  for (auto* list : {&file.jotlets, &file.deleted}) {
    for (FiledJotlet& jotlet : *list) {
      if (taken.insert(FoldCase(jotlet.record.id)).second) continue;
      const Text sharedContent = folder + ContentPath(jotlet.record);
      const Text sharedId = jotlet.record.id;
      do {
        jotlet.record.id = context.freshId();
      } while (!taken.insert(FoldCase(jotlet.record.id)).second);
      context.log.Write(kLogLifecycle, u"Two jotlets had the id '", sharedId, u"', the second is now '",
                        jotlet.record.id, u"'");
      if (jotlet.inlineContent || !context.files.Exists(sharedContent)) continue;
      const FileStatus copied =
          CopyContentFile(context.files, sharedContent, folder + ContentPath(jotlet.record));
      if (!copied) context.log.Write(kLogLifecycle, u"Unable to copy its content: ", copied.reason);
    }
  }
}

void KeepSome(std::vector<FiledJotlet>& deleted, std::int32_t keepDeleted) {
  const auto maximum = static_cast<std::size_t>(std::max(keepDeleted, 0));
  if (deleted.size() > maximum) deleted.resize(maximum);
}

}  // namespace

void KeepCopies(Files& files, TextView folder, const LocalTime& now, Log& log) {
  for (const TextView name : {kExitCopyName, kSafetyCopyName}) {
    const Text path = Text(folder) + Text(name);
    if (!files.Exists(path)) continue;
    const Text kept = DatedName(files, path, kKeptMark, now);
    const FileStatus status = files.Copy(path, kept);
    if (status)
      log.Write(kLogLifecycle, u"'", path, u"' is kept as '", kept, u"'");
    else
      log.Write(kLogLifecycle, u"Unable to keep '", path, u"': ", status.reason);
  }
}

bool LoadOptionsFile(const Files& files, const CodePage& ansi, TextView path, Options& options) {
  const FileContent content = files.Read(path);
  if (content.state != FileContent::State::kRead) return false;
  LoadOptions(options, DecodeTextFile(content.bytes, ansi).text);
  return true;
}

bool LoadOptionsToReplace(Files& files, const CodePage& ansi, Log& log, const LocalTime& now, TextView path,
                          Options& options) {
  const FileContent content = files.Read(path);
  if (content.state == FileContent::State::kUnreadable)
    log.Write(kLogLifecycle, u"Unable to read '", path, u"': ", content.reason);
  if (content.state != FileContent::State::kRead) return content.state == FileContent::State::kMissing;
  const TextFile text = DecodeTextFile(content.bytes, ansi);
  LoadOptions(options, text.text);
  if (content.bytes.empty()) log.Write(kLogLifecycle, u"Options file '", path, u"' is empty");
  // A file with so many unknown lines is somebody else's: writing it anew would cut it short.
  if (!text.damaged && options.others.size() < kMaxUnknownOptions) return true;
  const Text kept = DatedName(files, path, kDamagedMark, now);
  const FileStatus status = files.Write(kept, content.bytes);
  log.Write(kLogLifecycle, u"Options file '", path, u"' is damaged, ",
            status ? u"kept as '" : u"not kept as '", kept, u"'");
  return status.ok;
}

Text DatedName(const Files& files, TextView path, TextView word, const LocalTime& now) {
  const Text dated = Text(path).append(word).append(MinuteStamp(now));
  Text name = dated;
  for (int number = 2; files.Exists(name) && number < 1000; ++number) name = dated + u"-" + IntText(number);
  return name;
}

LoadedData LoadJotlets(const LoadContext& context, TextView folderView, std::string_view journal) {
  const Text folder(folderView);
  const Text path = folder + Text(kDataFileName);
  LoadedData loaded;
  Reading reading = ReadDataFile(context, path);
  const FileContent content = std::move(reading.content);
  const bool isThere = content.state != FileContent::State::kMissing;
  const bool newer = reading.file.version > kDataFileVersion;
  if (isThere && !newer && (!reading.whole || IsBeginningOfCopy(context, folder, content))) {
    loaded.damaged = true;
    loaded.keptAs = KeepDamagedFile(context, path, content);
    KeepCopies(context.files, folder, context.now.local, context.log);
    CompleteFromCopy(context, folder, reading, loaded);
  }
  if (newer) {
    context.log.Write(kLogDetail, u"Data file at ", path, u" is version ", reading.file.version,
                      u" but I only open version ", kDataFileVersion);
    loaded.file = std::move(reading.file);
    return loaded;
  }
  context.options = std::move(reading.options);
  loaded.file = std::move(reading.file);
  loaded.fingerprint = isThere ? FingerprintOf(content.bytes) : 0;
  loaded.journal = ReplayJournal(context, folder, journal, loaded.fingerprint, loaded.damaged, loaded.file);
  KeepSome(loaded.file.deleted, context.options.keepDeleted);
  SeparateSharedIds(context, folder, loaded.file);
  const bool jotletsWritten = WriteInlineContents(context, folder, loaded.file.jotlets);
  const bool deletedWritten = WriteInlineContents(context, folder, loaded.file.deleted);
  if (!(jotletsWritten && deletedWritten) && !loaded.damaged) {
    loaded.damaged = true;
    loaded.keptAs = KeepDamagedFile(context, path, content);
  }
  return loaded;
}

}  // namespace jotlets

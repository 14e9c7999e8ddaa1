#include "desk/note_import.h"

#include <utility>

#include "data/text_file.h"
#include "data/text_import.h"
#include "desk/note_file.h"

namespace jotlets {
namespace {

constexpr std::uint64_t kLargestImport = 4 * 1024 * 1024;
constexpr std::size_t kLongestTitle = 200;

bool IsMarkdown(TextView path) { return HasExtension(path, u".md") || HasExtension(path, u".markdown"); }
bool IsPage(TextView path) { return HasExtension(path, u".html") || HasExtension(path, u".htm"); }

// Most programs write UTF-8 without a mark by now, and no other text of several letters happens to be valid.
TextFile DecodeOutsideText(std::string_view bytes, const CodePage& ansi) {
  TextFile text = DecodeTextFile(bytes, ansi);
  bool valid = false;
  Text unmarked = FromUtf8(bytes, &valid);
  if (valid && !text.damaged && !bytes.starts_with("\xEF\xBB\xBF")) text.text = std::move(unmarked);
  return text;
}

bool ReadWhole(const Files& files, TextView path, std::string& bytes, Text& reason) {
  FileContent content = files.Read(path);
  bytes = std::move(content.bytes);
  if (content.state == FileContent::State::kRead) return true;
  reason = content.state == FileContent::State::kMissing ? Text(u"the file is not there") : content.reason;
  return false;
}

bool ReadCollection(const Files& files, TextView path, std::string& bytes, Text& reason) {
  if (files.Size(path) > kLargestCollection) {
    reason = u"the file is over 64 MB";
    return false;
  }
  return ReadWhole(files, path, bytes, reason);
}

std::optional<Text> DecodeTable(std::string_view bytes, const CodePage& ansi, Text& reason) {
  TextFile text = DecodeOutsideText(bytes, ansi);
  if (text.damaged) reason = u"the file holds no text";
  return text.damaged ? std::nullopt : std::optional(std::move(text.text));
}

}  // namespace

Text NameOfFile(TextView path) {
  const TextView name = path.substr(path.find_last_of(u"\\/") + 1);
  return Text(name.substr(0, name.rfind(u'.')));
}

std::optional<NewNote> NoteFromFile(const Files& files, const CodePage& ansi, TextView path,
                                    std::int32_t maximumWidth, Text& reason) {
  if (files.Size(path) > kLargestImport) {
    reason = u"the file is over 4 MB";
    return std::nullopt;
  }
  std::string bytes;
  if (!ReadWhole(files, path, bytes, reason)) return std::nullopt;
  const TextFile text = DecodeOutsideText(bytes, ansi);
  if (text.damaged) {
    reason = u"the file holds no text";
    return std::nullopt;
  }
  NewNote fresh;
  if (HasExtension(path, u".jtl")) {
    const auto message = ParseNoteMessage(NoteMessageFromFile(text.text));
    if (!message) reason = u"the file holds no note";
    if (!message) return std::nullopt;
    fresh = FromNoteMessage(*message, maximumWidth);
  } else if (IsMarkdown(path) || IsPage(path)) {
    const ImportedText imported = IsPage(path) ? TextOfHtml(text.text) : TextOfMarkdown(text.text);
    fresh.title =
        imported.title.empty() ? NameOfFile(path) : OneLine(imported.title).substr(0, kLongestTitle);
    fresh.rtf = FromAscii(RtfOfParagraphs(imported.paragraphs));
  } else {
    fresh.title = NameOfFile(path);
    (text.text.starts_with(u"{\\rtf") ? fresh.rtf : fresh.text) = text.text;
  }
  fresh.reason = Reason::kImport;
  return fresh;
}

bool IsCollection(TextView path) {
  return HasExtension(path, u".enex") || HasExtension(path, u".opml") || HasExtension(path, u".csv");
}

std::unique_ptr<NoteCollection> CollectionOfFile(const Files& files, const CodePage& ansi, TextView path,
                                                 const std::optional<CsvColumns>& columns, Text& reason) {
  std::string bytes;
  if (!ReadCollection(files, path, bytes, reason)) return nullptr;
  if (HasExtension(path, u".enex")) return NotesOfEnex(std::move(bytes));
  if (HasExtension(path, u".opml")) return NotesOfOpml(std::move(bytes));
  std::optional<Text> table = DecodeTable(bytes, ansi, reason);
  return table ? NotesOfCsv(std::move(*table), columns) : nullptr;
}

std::optional<CsvPreview> PreviewOfTable(const Files& files, const CodePage& ansi, TextView path,
                                         Text& reason) {
  std::string bytes;
  if (!ReadCollection(files, path, bytes, reason)) return std::nullopt;
  const std::optional<Text> table = DecodeTable(bytes, ansi, reason);
  return table ? std::optional(PreviewOfCsv(*table)) : std::nullopt;
}

NewNote FromCollected(const CollectedNote& note) {
  NewNote fresh;
  fresh.reason = Reason::kImport;
  fresh.title = OneLine(note.title).substr(0, kLongestTitle);
  fresh.rtf = FromAscii(RtfOfParagraphs(note.paragraphs));
  fresh.created = note.created;
  fresh.modified = note.modified;
  return fresh;
}

}  // namespace jotlets

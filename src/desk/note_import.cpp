#include "desk/note_import.h"

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
TextFile DecodeImport(std::string_view bytes, const CodePage& ansi) {
  TextFile text = DecodeTextFile(bytes, ansi);
  bool valid = false;
  Text unmarked = FromUtf8(bytes, &valid);
  if (valid && !text.damaged && !bytes.starts_with("\xEF\xBB\xBF")) text.text = std::move(unmarked);
  return text;
}

// The name of a file without its folder and extension.
Text NameOf(TextView path) {
  const TextView name = path.substr(path.find_last_of(u"\\/") + 1);
  return Text(name.substr(0, name.rfind(u'.')));
}

}  // namespace

std::optional<NewNote> NoteFromFile(const Files& files, const CodePage& ansi, TextView path,
                                    std::int32_t maximumWidth, Text& reason) {
  if (files.Size(path) > kLargestImport) {
    reason = u"the file is over 4 MB";
    return std::nullopt;
  }
  const FileContent content = files.Read(path);
  if (content.state != FileContent::State::kRead) {
    reason = content.state == FileContent::State::kMissing ? Text(u"the file is not there") : content.reason;
    return std::nullopt;
  }
  const TextFile text = DecodeImport(content.bytes, ansi);
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
    fresh.title = imported.title.empty() ? NameOf(path) : OneLine(imported.title).substr(0, kLongestTitle);
    fresh.rtf = FromAscii(RtfOfParagraphs(imported.paragraphs));
  } else {
    fresh.title = NameOf(path);
    (text.text.starts_with(u"{\\rtf") ? fresh.rtf : fresh.text) = text.text;
  }
  fresh.reason = Reason::kImport;
  return fresh;
}

}  // namespace jotlets

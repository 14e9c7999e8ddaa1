// Any text as a command line, and as a note file: its content arrives behind the message unchanged.
#include "app/startup_arguments.h"
#include "desk/note_file.h"
#include "desk/note_message.h"
#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  if (size == 0) return 0;
  const std::string_view bytes = Bytes(data + 1, size - 1);
  const Text input = (data[0] & 1) != 0 ? Units(bytes) : FromUtf8(bytes);
  const StartRequest request = ParseCommandLine(input);
  Check((request.kind == StartKind::kNoteFile || request.kind == StartKind::kSkinFile) ==
        !request.file.empty());

  const Text message = NoteMessageFromFile(input);
  const Inbound inbound = RouteInbound(message, true);
  Check(inbound.kind == InboundKind::kNoteMessage);
  const auto note = ParseNoteMessage(inbound.text);
  Check(note.has_value());
  Check(input.ends_with(note->content) && note->isRtf == note->content.starts_with(u"{\\rtf1"));
  ParseNoteMessage(input);
  return 0;
}

#include "desk/note_admission.h"

#include <algorithm>

#include "data/content_files.h"
#include "data/data_folder.h"
#include "data/jotlet_id.h"
#include "data/loading.h"
#include "data/rtf_bytes.h"
#include "schedule/recurrence.h"

namespace jotlets {
namespace {

constexpr TextView kClosedTag = u"<CLOSED>";

Text ContentOf(TextView folder, TextView id, bool isImage) {
  JotletData named;
  named.id = id;
  named.isImage = isImage ? 1 : 0;
  return Text(folder) + ContentPath(named);
}

NoteList ListOf(const JotletData& record, bool closed) {
  if (closed) return NoteList::kClosed;
  if (record.sleep.asleep) return NoteList::kSleeping;
  return record.IsAttached() ? NoteList::kAttached : NoteList::kDesktop;
}

FileStatus ProvideContent(const AdmissionContext& context, const FiledJotlet& note, TextView givenId) {
  const Text path = Text(context.folder) + ContentPath(note.record);
  if (!note.record.IsImage()) {
    return context.files.Write(
        path, note.inlineContent ? RtfBytes(*note.inlineContent) : std::string(kPlaceholderRtf));
  }
  const Text original = ContentOf(context.folder, givenId, true);
  return CopyContentFile(
      context.files, context.files.Exists(original) ? original : Text(context.folder).append(kDefaultPngName),
      path);
}

}  // namespace

std::optional<AdmittedNote> AdmitEncodedNote(const AdmissionContext& context, TextView encoded, bool asleep) {
  TextView line = TrimBlanks(encoded);
  // A note that was closed at an unknown time is closed all the same.
  const bool closed = StartsWithIgnoreCase(line, kClosedTag);
  std::int32_t closedAt = kNotSet;
  if (closed) {
    line.remove_prefix(kClosedTag.size());
    closedAt = ParseInt(line);
    line.remove_prefix(std::min(line.find(u'<'), line.size()));
  }
  FiledJotlet note = ParseEncodedJotlet(line, context.blank, context.freshId);
  note.record.deletedTime = closedAt;
  note.record.sleep.asleep = note.record.sleep.asleep || (asleep && !closed);
  // Without a time, it would wake as soon as it is there.
  if (asleep && !closed && !note.record.sleep.recurring && note.record.sleep.nextWake <= 0)
    note.record.sleep.nextWake = kNeverAgain;
  const Text givenId = note.record.id;
  if (!IsAddressableId(givenId) || context.isTaken(givenId) ||
      context.files.Exists(ContentOf(context.folder, givenId, false)) ||
      context.files.Exists(ContentOf(context.folder, givenId, true))) {
    note.record.id = context.freshId();
  }
  if (const FileStatus provided = ProvideContent(context, note, givenId); !provided) {
    context.log.Write(kLogLifecycle, u"No content for a note from outside: ", provided.reason);
    return std::nullopt;
  }
  const NoteList list = ListOf(note.record, closed);
  return AdmittedNote{std::move(note.record), list};
}

}  // namespace jotlets

#include "desk/note_maker.h"

#include <algorithm>

#include "data/content_files.h"
#include "data/data_folder.h"
#include "data/loading.h"
#include "note/frame_layout.h"
#include "note/placement.h"
#include "note/rolled.h"
#include "picture/picture.h"

namespace jotlets {
namespace {

// A note too small to be taken hold of, or too large for the memory, could only be mended in the file.
void KeepSizeUsable(JotletData& record) {
  const Size size = SafeSize({record.width, record.height}, kMinimumNoteSize);
  record.width = size.width;
  // Of a rolled note it may be unknown, which the note asks its content about when it has to know.
  if (!record.rolled || record.height != kNone) record.height = size.height;
  record.altWidth = std::min(record.altWidth, kLongestSide);
}

}  // namespace

NewNote FromNoteMessage(const NoteMessage& message, std::int32_t maximumWidth) {
  NewNote fresh;
  fresh.reason = Reason::kImport;
  (message.isRtf ? fresh.rtf : fresh.text) = message.content;
  fresh.title = message.title;
  // A note that came from outside is known by its source.
  fresh.source = message.source.empty() ? Text(u"unknown") : message.source;
  fresh.colour = message.colour;
  fresh.width = std::min(message.width, maximumWidth);
  return fresh;
}

void NoteMaker::ProvideTemplates(std::string_view rtf) {
  const Text rtfPath = folder_ + Text(kDefaultRtfName);
  if (!files_.Exists(rtfPath)) files_.Write(rtfPath, rtf);
  const Text pngPath = folder_ + Text(kDefaultPngName);
  if (files_.Exists(pngPath)) return;
  const Size size = Options().ImageJotletSize();
  const Picture white{size,
                      std::vector<std::uint8_t>(static_cast<std::size_t>(size.width * size.height) * 4, 255)};
  files_.Write(pngPath, EncodePng(white));
}

Text NoteMaker::NewJotletId() {
  for (;;) {
    Text id = ids_.Next(clock_.Now().local);
    if (!IsTaken(id)) return id;
  }
}

bool NoteMaker::IsTaken(TextView id) const {
  JotletData text;
  text.id = id;
  JotletData picture = text;
  picture.isImage = 1;
  return lists_.WhereIs(id).has_value() || store_.Has(id) || files_.Exists(folder_ + ContentPath(text)) ||
         files_.Exists(folder_ + ContentPath(picture));
}

Text NoteMaker::AdoptableId(const Orphan& orphan) {
  if (IsPlainFileName(orphan.id)) return orphan.id;
  JotletData named;
  named.isImage = orphan.isImage ? 1 : 0;
  named.id = orphan.id;
  const Text from = folder_ + ContentPath(named);
  named.id = NewJotletId();
  const Text to = folder_ + ContentPath(named);
  const FileStatus moved = files_.Rename(from, to);
  if (moved && orphan.isImage) files_.Rename(ObjectsPath(from), ObjectsPath(to));
  if (moved) return named.id;
  log_.Write(kLogLifecycle, u"Unable to adopt '", from, u"': ", moved.reason);
  return {};
}

JotletData NoteMaker::Blank(Text id) const {
  JotletData record;
  record.Reset(options_.ForRecords(), RecordTime(clock_.Now().utc), std::move(id));
  return record;
}

std::optional<JotletData> NoteMaker::Make(const NewNote& fresh) {
  JotletData record = Blank(fresh.id.empty() ? NewJotletId() : fresh.id);
  record.isImage = fresh.isImage ? 1 : 0;
  record.title = fresh.title;
  record.source = fresh.source;
  if (fresh.created) record.created = RecordTime(*fresh.created);
  if (fresh.modified) record.modified = RecordTime(*fresh.modified);
  if (fresh.colour) {
    record.colour = *fresh.colour;
  } else if (options_.newJotletColour >= 0) {
    record.colour = ColourOfNumber(options_.newJotletColour);
  }
  Place(record);
  if (fresh.width > 0) record.width = fresh.width;
  KeepSizeUsable(record);
  if (fresh.id.empty() && !ProvideContent(record, fresh.content)) return std::nullopt;
  return record;
}

void NoteMaker::Complete(JotletData& record) const {
  if (record.x == kNotSet || record.y == kNotSet) {
    const Size size{record.width, record.height};
    Place(record);
    if (size.width > 0) record.width = size.width;
    if (size.height > 0) record.height = size.height;
  }
  if (record.width <= 0) record.width = options_.defaultWidth;
  if (record.height <= 0 && !(record.rolled && record.height == kNone))
    record.height = options_.defaultHeight;
  KeepSizeUsable(record);
}

void NoteMaker::Place(JotletData& record) const {
  const ScreenFacts screen = windows_.Screen();
  PlacementSettings settings = PlacementFrom(options_, NoteOrigin::kUser, record.IsImage(), screen.primary,
                                             {screen.all.Width(), screen.all.Height()});
  settings.monitors = screen.monitors;
  settings.dpi = screen.dpi;
  std::vector<Point> corners;
  corners.reserve(lists_.desktop.size());
  for (const auto& open : lists_.desktop) corners.push_back(windows_.StateOf(open->id).bounds.TopLeft());
  const Placed placed =
      PlaceNewJotlet({record.x, record.y}, {record.width, record.height}, settings, corners);
  record.x = placed.position.x;
  record.y = placed.position.y;
  record.width = placed.size.width;
  record.height = placed.size.height;
}

// A new note begins as a copy of the user's template, so that its content is on the disk from the first
// moment.
bool NoteMaker::ProvideContent(const JotletData& record, std::string_view bytes) {
  const Text path = folder_ + ContentPath(record);
  if (!bytes.empty()) {
    const FileStatus written = files_.Write(path, bytes);
    if (!written) log_.Write(kLogLifecycle, u"Unable to write a content file: ", written.reason);
    return written.ok;
  }
  const FileStatus copied =
      files_.Copy(folder_ + Text(record.IsImage() ? kDefaultPngName : kDefaultRtfName), path);
  if (copied) return true;
  if (record.IsImage()) {
    log_.Write(kLogLifecycle, u"No picture for a new jotlet: ", copied.reason);
    return false;
  }
  const FileStatus written = files_.Write(path, kPlaceholderRtf);
  if (!written) log_.Write(kLogLifecycle, u"Unable to write a content file: ", written.reason);
  return true;
}

}  // namespace jotlets

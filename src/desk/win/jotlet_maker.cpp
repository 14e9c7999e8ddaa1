#include "desk/win/jotlet_maker.h"

#include <algorithm>

#include "app/win/system_facts.h"
#include "data/data_folder.h"
#include "data/loading.h"
#include "note/frame_layout.h"
#include "note/placement.h"
#include "skin/picture.h"
#include "ui/screen.h"

namespace jotlets {

namespace {

// Larger than any screen, smaller than what the system's coordinates can hold.
constexpr std::int32_t kLongestSide = 30000;

// A note too small to be taken hold of could only be mended in the file.
void KeepSizeUsable(JotletData& record) {
  const Size size = SafeSize({record.width, record.height}, kMinimumNoteSize);
  record.width = std::min(size.width, kLongestSide);
  record.height = std::min(size.height, kLongestSide);
  record.altWidth = std::min(record.altWidth, kLongestSide);
}

}  // namespace

NewJotlet FromNoteMessage(const NoteMessage& message) {
  NewJotlet fresh;
  fresh.reason = u"import";
  (message.isRtf ? fresh.rtf : fresh.text) = message.content;
  fresh.title = message.title;
  fresh.source = message.source;
  fresh.colour = message.colour;
  fresh.width = std::min(message.width, VirtualScreen().Width());
  return fresh;
}

JotletMaker::JotletMaker(Files& files, const Clock& clock, Log& log, const Options& options,
                         const JotletLists& lists, DesktopJotlets& desktop)
    : files_(files),
      clock_(clock),
      log_(log),
      options_(options),
      lists_(lists),
      desktop_(desktop),
      ids_(InstanceNumber()) {}

void JotletMaker::ProvideTemplates(std::string_view rtf) {
  const Text rtfPath = folder_ + Text(kDefaultRtfName);
  if (!files_.Exists(rtfPath)) files_.Write(rtfPath, rtf);
  const Text pngPath = folder_ + Text(kDefaultPngName);
  if (files_.Exists(pngPath)) return;
  const Size size = Options().ImageJotletSize();
  const Picture white{size,
                      std::vector<std::uint8_t>(static_cast<std::size_t>(size.width * size.height) * 4, 255)};
  files_.Write(pngPath, EncodePng(white));
}

Text JotletMaker::NewJotletId() {
  for (;;) {
    Text id = ids_.Next(clock_.Now().local);
    if (!IsTaken(id)) return id;
  }
}

bool JotletMaker::IsTaken(TextView id) const {
  JotletData text;
  text.id = id;
  JotletData picture = text;
  picture.isImage = 1;
  return desktop_.Find(id) != nullptr || lists_.Holds(id) || files_.Exists(folder_ + ContentPath(text)) ||
         files_.Exists(folder_ + ContentPath(picture));
}

Text JotletMaker::AdoptableId(const Orphan& orphan) {
  if (IsPlainFileName(orphan.id)) return orphan.id;
  JotletData named;
  named.isImage = orphan.isImage ? 1 : 0;
  named.id = orphan.id;
  const Text from = folder_ + ContentPath(named);
  named.id = NewJotletId();
  const FileStatus moved = files_.Rename(from, folder_ + ContentPath(named));
  if (moved) return named.id;
  log_.Write(kLogLifecycle, u"Unable to adopt '", from, u"': ", moved.reason);
  return {};
}

BJotlet* JotletMaker::Make(const NewJotlet& fresh) {
  JotletData record;
  record.Reset(options_.ForRecords(), RecordTime(clock_.Now().utc),
               fresh.id.empty() ? NewJotletId() : fresh.id);
  record.isImage = fresh.isImage ? 1 : 0;
  record.title = fresh.title;
  record.source = fresh.source;
  if (fresh.colour) record.colour = *fresh.colour;
  Place(record);
  if (fresh.width > 0) record.width = fresh.width;
  KeepSizeUsable(record);
  const Text id = record.id;
  if (fresh.id.empty() && !ProvideContent(record, fresh.picture)) return nullptr;
  BJotlet* jotlet = desktop_.Open(std::move(record));
  if (jotlet == nullptr) return nullptr;
  if (!fresh.rtf.empty()) {
    jotlet->SetRtf(fresh.rtf);
  } else if (!fresh.text.empty()) {
    jotlet->SetPlainText(fresh.text);
  }
  if (fresh.fromClipboard) jotlet->PasteClipboard(!fresh.plainClipboard);
  jotlet->Show();
  log_.Write(kLogDetail, u"Created (", fresh.reason, u") ", id);
  return jotlet;
}

BJotlet* JotletMaker::OpenLoaded(JotletData record) {
  if (record.x == kNotSet || record.y == kNotSet) {
    const Size size{record.width, record.height};
    Place(record);
    if (size.width > 0) record.width = size.width;
    if (size.height > 0) record.height = size.height;
  }
  if (record.width <= 0) record.width = options_.defaultWidth;
  if (record.height <= 0) record.height = options_.defaultHeight;
  KeepSizeUsable(record);
  return desktop_.Open(std::move(record));
}

void JotletMaker::Place(JotletData& record) const {
  const Rect screen = VirtualScreen();
  const PlacementSettings settings = PlacementFrom(options_, NoteOrigin::kUser, record.IsImage(),
                                                   PrimaryScreenSize(), {screen.Width(), screen.Height()});
  std::vector<Point> corners;
  for (const auto& jotlet : desktop_.All()) {
    const Rect bounds = jotlet->Bounds();
    corners.push_back({bounds.left, bounds.top});
  }
  const Placed placed =
      PlaceNewJotlet({record.x, record.y}, {record.width, record.height}, settings, corners);
  record.x = placed.position.x;
  record.y = placed.position.y;
  record.width = placed.size.width;
  record.height = placed.size.height;
}

// A new note begins as a copy of the user's template, so that its content is on the disk from the first
// moment.
bool JotletMaker::ProvideContent(const JotletData& record, std::string_view picture) {
  if (!picture.empty()) {
    const FileStatus written = files_.Write(folder_ + ContentPath(record), picture);
    if (!written) log_.Write(kLogLifecycle, u"Unable to write a content file: ", written.reason);
    return written.ok;
  }
  const Text original = folder_ + Text(record.IsImage() ? kDefaultPngName : kDefaultRtfName);
  const FileStatus copied = files_.Copy(original, folder_ + ContentPath(record));
  if (copied) return true;
  if (record.IsImage()) {
    log_.Write(kLogLifecycle, u"No picture for a new jotlet: ", copied.reason);
    return false;
  }
  const FileStatus written = files_.Write(folder_ + ContentPath(record), kPlaceholderRtf);
  if (!written) log_.Write(kLogLifecycle, u"Unable to write a content file: ", written.reason);
  return true;
}

}  // namespace jotlets

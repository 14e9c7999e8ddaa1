#include "desk/win/note_contents.h"

#include "data/content_files.h"
#include "data/rtf_bytes.h"
#include "data/rtf_text.h"
#include "picture/picture.h"
#include "picture/win/picture_reader.h"
#include "picture/win/picture_writer.h"

namespace jotlets {
namespace {

constexpr auto kWholeText = static_cast<std::size_t>(kLargestSearchedFile);

}  // namespace

std::string NoteContents::BytesOf(const JotletData& record) const {
  return files_.Read(desk_.Folder() + ContentPath(record)).bytes;
}

FileContent NoteContents::ReadText(const JotletData& record) const {
  const Text path = desk_.Folder() + ContentPath(record);
  if (files_.Size(path) > kLargestSearchedFile) return {FileContent::State::kUnreadable, {}, u"too large"};
  return files_.Read(path);
}

std::string NoteContents::ObjectsOf(const JotletData& record) const {
  return files_.Read(ObjectsPath(desk_.Folder() + ContentPath(record))).bytes;
}

Text NoteContents::RichTextOf(const JotletData& record) const {
  if (record.IsImage()) return {};
  const BJotlet* jotlet = notes_.Find(record.id);
  if (jotlet != nullptr && jotlet->Content().IsWhole()) return jotlet->Content().RichText();
  const std::string bytes = BytesOf(record);
  return bytes.starts_with("{\\rtf1") ? ansi_.Decode(bytes) : Text();
}

Text NoteContents::WordsOf(TextView id, std::size_t maximum) const {
  if (const BJotlet* jotlet = notes_.Find(id)) return jotlet->Content().PlainText().substr(0, maximum);
  JotletData named;
  named.id = id;
  const Text path = desk_.Folder() + ContentPath(named);
  if (files_.Size(path) > kLargestSearchedFile) return {};
  return RtfTextStart(files_.Read(path).bytes, maximum);
}

std::string NoteContents::ReadPicture(TextView path) const {
  if (files_.Size(path) > kLargestPictureFile) return {};
  return PngOfAnyPicture(files_.Read(path).bytes);
}

bool NoteContents::SetPicture(BJotlet& jotlet, TextView path) {
  const std::string png = ReadPicture(path);
  if (png.empty() || !jotlet.Content().Fits(png)) return false;
  const FileStatus written = files_.Write(desk_.Folder() + ContentPath(jotlet.StoredRecord()), png);
  if (!written) {
    log_.Write(kLogLifecycle, u"Unable to write a picture: ", written.reason);
    return false;
  }
  jotlet.LoadContent(png);
  jotlet.Record().modified = RecordTime(clock_.Now().utc);
  InvalidateRect(jotlet.Handle(), nullptr, FALSE);
  desk_.Changed(jotlet.StoredRecord().id);
  return true;
}

FileStatus NoteContents::WriteCopy(const JotletData& record, TextView path) {
  const BJotlet* jotlet = notes_.Find(record.id);
  const bool plain = HasExtension(path, u".txt") && !record.IsImage();
  // The editor knows nothing of other kinds; all of the text, also when it shows a beginning.
  const bool other = IsOtherKind(path) && !record.IsImage();
  if (other || (plain && jotlet == nullptr)) {
    const Text rtf = RichTextOf(record);
    if (rtf.empty()) return FileStatus::Failed(u"its text cannot be read");
    return files_.Write(path, other ? CopyOfText(record, rtf, TitleOf(record), path)
                                    : ToUtf8(RtfTextStart(RtfBytes(rtf), kWholeText)));
  }
  if (record.IsImage() && (HasExtension(path, u".jpg") || HasExtension(path, u".jpeg")))
    return WriteJpeg(record, path);
  if (jotlet == nullptr) return files_.Copy(desk_.Folder() + ContentPath(record), path);
  const ContentCopy copy = jotlet->Content().Copy(plain);
  if (!copy.fault.empty()) return FileStatus::Failed(Text(copy.fault));
  if (copy.bytes) return files_.Write(path, *copy.bytes);
  return files_.Copy(desk_.Folder() + ContentPath(record), path);
}

FileStatus NoteContents::WriteJpeg(const JotletData& record, TextView path) {
  const BJotlet* jotlet = notes_.Find(record.id);
  const ContentCopy shown = jotlet == nullptr ? ContentCopy() : jotlet->Content().Copy(false);
  const auto picture = DecodePng(shown.bytes ? *shown.bytes : BytesOf(record));
  if (!picture) return FileStatus::Failed(u"its picture cannot be read");
  const std::string jpeg = JpegOf(*picture);
  return jpeg.empty() ? FileStatus::Failed(u"the picture could not be written as JPEG")
                      : files_.Write(path, jpeg);
}

Text NoteContents::TitleOf(const JotletData& record) const {
  const BJotlet* jotlet = notes_.Find(record.id);
  if (jotlet != nullptr) return jotlet->TitleShown();
  constexpr std::size_t kFirstLines = 400;
  return ShownTitle(record.title, record.IsImage() ? Text() : WordsOf(record.id, kFirstLines));
}

}  // namespace jotlets

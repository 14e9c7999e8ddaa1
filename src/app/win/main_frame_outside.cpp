// What other programs can have done: notes handed over, renamed, given pictures and skins, a backup.
#include "app/win/main_frame.h"
#include "data/jotlet_id.h"
#include "desk/note_admission.h"
#include "skin/picture_file.h"

namespace jotlets {
namespace {

constexpr std::uint64_t kLargestPictureFile = 256 * 1024 * 1024;

}  // namespace

std::string CMainFrame::ContentOf(const JotletData& record) const {
  return files_.Read(folder_ + ContentPath(record)).bytes;
}

Text CMainFrame::RichTextOf(const JotletData& record) {
  if (record.IsImage()) return {};
  const BJotlet* jotlet = FindJotlet(record.id);
  if (jotlet != nullptr && jotlet->Content().IsWhole()) return jotlet->Content().RichText();
  const std::string bytes = ContentOf(record);
  return bytes.starts_with("{\\rtf1") ? ansi_.Decode(bytes) : Text();
}

bool CMainFrame::SaveContent(TextView id) { return desktop_.SaveContent(id, clock_.Now()); }

Text CMainFrame::AdmitJotlet(TextView encoded, bool asleep, TextView reason) {
  JotletData blank;
  blank.Reset(CurrentOptions().ForRecords(), RecordTime(clock_.Now().utc), {});
  std::optional<AdmittedNote> note =
      AdmitEncodedNote({files_, log_, folder_, blank, [this] { return NewJotletId(); },
                        [this](TextView id) { return maker_.IsTaken(id); }},
                       encoded, asleep);
  if (!note) return {};
  Text id = note->record.id;
  OnListsChanged();
  switch (note->list) {
    case NoteList::kSleeping: lists_.sleeping.push_back(std::move(note->record)); return id;
    case NoteList::kAttached: lists_.attached.push_back(std::move(note->record)); return id;
    case NoteList::kClosed: {
      const std::int32_t closedAt = note->record.deletedTime;
      TellDropped(AddClosed(std::move(note->record), closedAt));
      return id;
    }
    case NoteList::kDesktop: break;
  }
  BJotlet* jotlet = maker_.OpenLoaded(std::move(note->record));
  if (jotlet == nullptr) return {};
  if (!jotlet->StoredRecord().hidden) jotlet->Show();
  NotifyListeners(Text(u"500 created desktop jotlet ").append(reason), id);
  return id;
}

CommandHost::Renamed CMainFrame::SetJotletId(TextView id, TextView newId) {
  using Renamed = CommandHost::Renamed;
  BJotlet* jotlet = FindJotlet(id);
  if (jotlet == nullptr || !IsAddressableId(newId)) return Renamed::kNoName;
  const bool otherLetters = !EqualIgnoreCase(id, newId);
  if (otherLetters && maker_.IsTaken(newId)) return Renamed::kTaken;
  if (otherLetters) {
    // The data file on disk names the old content until the next save, the one in memory the new.
    if (!SaveContent(id)) return Renamed::kFailed;
    const JotletData before = jotlet->Record();
    JotletData after = before;
    after.id = newId;
    const FileStatus copied = files_.Copy(folder_ + ContentPath(before), folder_ + ContentPath(after));
    if (!copied && files_.Exists(folder_ + ContentPath(before))) {
      Log(kLogLifecycle, u"Unable to rename jotlet ", before.id, u": ", copied.reason);
      return Renamed::kFailed;
    }
    saver_.RemoveContentLater(before);
  }
  desktop_.SetId(*jotlet, newId);
  SetDirty();
  return Renamed::kYes;
}

bool CMainFrame::SetJotletSkin(BJotlet& jotlet, TextView nameOrPath) {
  if (IsSkinFixedByPolicy()) return false;
  Text name(nameOrPath);
  if (nameOrPath.find_first_of(u"\\/") != TextView::npos) {
    const std::optional<Text> installed = skins_.Install(files_, nameOrPath);
    if (!installed) return false;
    name = *installed;
  } else if (!skins_.IsThere(name)) {
    return false;
  }
  desktop_.SetSkin(jotlet, name);
  return true;
}

std::string CMainFrame::ReadPicture(TextView path) const {
  if (files_.Size(path) > kLargestPictureFile) return {};
  return PngOfPicture(files_.Read(path).bytes);
}

bool CMainFrame::SetJotletPicture(BJotlet& jotlet, TextView path) {
  const std::string png = ReadPicture(path);
  if (png.empty() || !jotlet.Content().Fits(png)) return false;
  const FileStatus written = files_.Write(folder_ + ContentPath(jotlet.StoredRecord()), png);
  if (!written) {
    Log(kLogLifecycle, u"Unable to write a picture: ", written.reason);
    return false;
  }
  jotlet.LoadContent(png);
  jotlet.Record().modified = RecordTime(clock_.Now().utc);
  InvalidateRect(jotlet.Handle(), nullptr, FALSE);
  SetDirty();
  return true;
}

bool CMainFrame::BackUpInto(TextView folder) {
  if (!SaveForBackup()) return false;
  const FileStatus taken = jotlets::BackUpInto(files_, ansi_, folder_, folder);
  Log(kLogLifecycle, u"Backup into '", folder, u"': ", taken ? TextView(u"taken") : TextView(taken.reason));
  return taken.ok;
}

}  // namespace jotlets

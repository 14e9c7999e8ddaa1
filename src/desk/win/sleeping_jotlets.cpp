#include "desk/win/sleeping_jotlets.h"

#include <utility>

#include "base/win/shown_time.h"
#include "data/rtf_bytes.h"
#include "data/rtf_text.h"
#include "schedule/win/alarm_sound.h"
#include "ui/foreground_keeper.h"

namespace jotlets {
namespace {

// What of a text is compared: copies of a longer one that differ only behind it count as touched by nobody.
constexpr std::size_t kMostCompared = 1 << 20;

// The editor ends every text with a line of its own.
Text WordsOf(std::string_view rtf) {
  Text words = RtfTextStart(rtf, kMostCompared);
  words.resize(words.find_last_not_of(u"\r\n") + 1);
  return words;
}

}  // namespace

void SleepingJotlets::CheckAlarms() {
  const ForegroundKeeper keeper;
  waking_.CheckAlarms();
}

std::optional<JotletData> SleepingJotlets::TakeOffDesktop(TextView id) {
  const BJotlet* jotlet = desktop_.Find(id);
  // A note whose text could not be written stays open: asleep, the text would be gone.
  if (jotlet == nullptr || !desktop_.SaveContent(id, clock_.Now())) return std::nullopt;
  owner_.NotifyListeners(u"502 deleted desktop jotlet slept", Text(jotlet->StoredRecord().id));
  // A listener may have changed or closed it from inside the event.
  if (!desktop_.SaveContent(id, clock_.Now())) return std::nullopt;
  return desktop_.Remove(id);
}

bool SleepingJotlets::Sleep(TextView id, std::int64_t wakeTime, const WakeFlags& flags) {
  std::optional<JotletData> record = TakeOffDesktop(id);
  if (!record) return false;
  PutToSleep(*record, wakeTime, flags);
  lists_.sleeping.push_back(std::move(*record));
  owner_.OnListsChanged();
  return true;
}

bool SleepingJotlets::Recur(TextView id, const WakeRule& rule, std::int64_t start, std::int64_t end,
                            const WakeFlags& flags) {
  const std::int64_t first = FaultOf(rule).empty() ? NextWakeTime(rule, start, Now(), clock_) : 0;
  if (first <= 0) return false;
  std::optional<JotletData> record = TakeOffDesktop(id);
  if (!record) return false;
  MakeRecurring(*record, rule, first, end, flags);
  lists_.sleeping.push_back(std::move(*record));
  owner_.OnListsChanged();
  return true;
}

bool SleepingJotlets::Wake(JotletData record, TextView reason, const WakeFlags& flags) {
  const ForegroundKeeper keeper;
  const Text id = record.id;
  if (!files_.Exists(ContentFile(record)))
    log_.Write(kLogLifecycle, u"The content of jotlet ", id, u" is gone; it wakes empty");
  BJotlet* jotlet = maker_.OpenLoaded(std::move(record));
  if (jotlet == nullptr) return false;
  if (flags.onTop) jotlet->SetOnTop(true);
  if (!jotlet->StoredRecord().hidden) jotlet->Show();
  owner_.NotifyListeners(Text(u"500 created desktop jotlet ").append(reason), id);
  // A listener may have taken it away.
  jotlet = desktop_.Find(id);
  if (jotlet != nullptr && flags.alarm) jotlet->StartAlarm();
  return true;
}

bool SleepingJotlets::HasCopyOf(const JotletData& source) {
  std::optional<Text> words;
  for (const auto& jotlet : desktop_.All()) {
    if (!IsUntouchedCopy(jotlet->Record(), source)) continue;
    const Text path = ContentFile(source);
    if (source.IsImage() != jotlet->StoredRecord().IsImage()) continue;
    if (source.IsImage()) {
      if (files_.SameContent(path, ContentFile(jotlet->StoredRecord()))) return true;
      continue;
    }
    if (!words) words = WordsOf(files_.Read(path).bytes);
    if (WordsOf(RtfBytes(jotlet->Rtf())) == *words) return true;
  }
  return false;
}

FileStatus SleepingJotlets::CopyContent(const JotletData& from, const JotletData& to) {
  return files_.Copy(ContentFile(from), ContentFile(to));
}

void SleepingJotlets::StartDueAlarms(std::int64_t now) {
  std::vector<Text> due;
  for (const auto& jotlet : desktop_.All()) {
    const JotletData& record = jotlet->StoredRecord();
    if (record.alarm != kNone && record.alarm < now) due.push_back(record.id);
  }
  for (const Text& id : due) {
    if (BJotlet* jotlet = desktop_.Find(id)) jotlet->StartAlarm();
  }
}

void SleepingJotlets::PlayWakeSound() { PlayAlarmSound(options_, log_, kWakeSound); }

void SleepingJotlets::StopSounds() { jotlets::StopSounds(); }

Text SleepingJotlets::ShownTime(std::int32_t utc) { return jotlets::ShownTime(clock_.ToLocal(utc)); }

}  // namespace jotlets

#include "schedule/win/alarm_sound.h"

#include <windows.h>

#include <mmsystem.h>

#include "base/win/system_library.h"
#include "base/win/wide.h"

namespace jotlets {
namespace {

void PlaySystemSound(const wchar_t* file, DWORD flags) {
  static const auto play = SystemFunction<decltype(PlaySoundW)>(L"winmm.dll", "PlaySoundW");
  if (play != nullptr) play(file, nullptr, flags);
}

}  // namespace

void PlayAlarmSound(const Options& options, Log& log, int kind, bool trial) {
  const Text& name = kind == kWakeSound    ? options.alarm.text
                     : kind == kAlarmSound ? options.alarmAlarm
                                           : options.sound;
  if (name.empty() || EqualIgnoreCase(name, u"beep")) {
    log.Write(kLogDetail, u"Sounding PC speaker");
    MessageBeep(0xFFFFFFFF);
    return;
  }
  log.Write(kLogDetail, u"Playing sound: ", name);
  const DWORD loop = kind == kAlarmSound && options.loopAlarm == 1 && !trial ? SND_LOOP : 0;
  PlaySystemSound(Wide(name), SND_FILENAME | SND_ASYNC | SND_NODEFAULT | SND_NOSTOP | SND_NOWAIT | loop);
}

void StopSounds() { PlaySystemSound(nullptr, 0); }

}  // namespace jotlets

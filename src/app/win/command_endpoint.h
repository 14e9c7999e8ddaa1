// The program's end of the command interface: takes copy-data in, runs commands on the notes, sends events.
#pragma once

#include <windows.h>

#include <optional>

#include "command/interpreter.h"
#include "command/win/copy_data.h"

namespace jotlets {

class BJotlet;
class CMainFrame;

/// The command language's view of the program.
class CommandEndpoint final : public CommandHost {
 public:
  CommandEndpoint(CMainFrame& frame, const CodePage& ansi, Log& log);

  /// Replies and events go out in the name of this window.
  void SetWindow(HWND window) { transport_.SetSender(window); }

  /// Serves a copy-data message.
  void OnCopyData(HWND sender, const COPYDATASTRUCT& record);

  jotlets::Listeners& Listeners() { return listeners_; }

  DesktopJotlet* FindDesktop(TextView id) override;
  std::vector<Text> DesktopIds() const override;
  std::vector<Text> AttachedIds() const override;
  std::vector<Text> SleepingIds() const override;
  std::vector<Text> ClosedIds() const override;
  std::vector<std::int32_t> StackNumbers() const override;
  const JotletData* FindAttached(TextView id) override;
  const StackRecord* FindStack(std::int32_t number) const override;
  Text CreateDesktop(TextView text) override;
  bool CloseDesktop(TextView id) override;
  bool DeleteDesktop(TextView id) override;
  Text ContentForTransfer(const JotletData& record) override;
  const JotletData* FindSleeping(TextView id) override;
  bool WakeSleeping(TextView id) override;
  bool Sleep(TextView id, const WakeFlags& flags, std::int64_t seconds) override;
  bool Recur(TextView id, const WakeFlags& flags, const WakeRule& rule, std::int32_t start,
             std::int32_t end) override;
  void SoundAlarm(TextView id, bool on) override;
  void MoveSleeping(TextView id, Point position) override;
  void SetWakeTime(TextView id, std::int32_t time) override;
  bool SaveNow() override;
  void BringForward() override;
  void NotifyMoved(TextView id) override;
  bool RolledHasAltPosition() const override;
  Text DataPath() const override;
  Text UniqueId() const override;

 private:
  // The note that the command under way is about.
  class Addressed final : public DesktopJotlet {
   public:
    explicit Addressed(BJotlet& jotlet) : jotlet_(jotlet) {}
    JotletData& Record() override;
    Text PlainText() override;
    Text Rtf() override;
    void SetTitle(TextView title) override;
    void SetColour(Colour colour) override;
    bool SetPlainText(TextView text) override;
    bool SetRtf(TextView rtf) override;
    void MoveTo(Point position) override;

   private:
    BJotlet& jotlet_;
  };

  CMainFrame& frame_;
  const CodePage& ansi_;
  Log& log_;
  CopyDataTransport transport_;
  jotlets::Listeners listeners_;
  std::optional<Addressed> addressed_;
};

}  // namespace jotlets

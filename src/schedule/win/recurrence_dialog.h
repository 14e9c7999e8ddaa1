// Asks how often a note is to come again.
#pragma once

#include <optional>
#include <vector>

#include "base/clock.h"
#include "data/options.h"
#include "schedule/sleep_times.h"
#include "ui/dialog.h"

namespace jotlets {

/// A recurrence from `start` until `end` (seconds since 1970 UTC; `kNone`: for good).
struct Recurrence {
  WakeRule rule;
  std::int64_t start = 0;
  std::int64_t end = kNone;
  WakeFlags flags;
};

class BRecurranceDlg final : public Dialog {
 public:
  /// Shows the rule of `record`, if it has one.
  BRecurranceDlg(const Resources& resources, const JotletData& record, const Options& options,
                 const Clock& clock)
      : resources_(resources), record_(record), options_(options), clock_(clock) {}

  /// The recurrence that was chosen; nothing when it was cancelled.
  std::optional<Recurrence> Ask(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  void OnNotify(const NMHDR& header) override;
  void FillLists();
  /// The start of the recurrence.
  LocalTime ShowTimes();
  void ShowRule(const LocalTime& start);
  void ShowFlags();
  Recurrence Chosen() const;
  WakeRule ChosenRule() const;
  /// What is shown follows the kind of rule, and the rule in words all of it.
  void Follow();
  void ShowWords();
  void SetWords(int control, const Text& words);
  Text SentenceOf(const WakeRule& rule) const;
  Text EndInWords(const Recurrence& chosen) const;
  void ShowDates(const Recurrence& chosen);
  void ChooseDay(int radio);
  bool IsOn(int control) const { return IsDlgButtonChecked(Handle(), control) == BST_CHECKED; }
  std::int32_t Selected(int list) const;
  std::int32_t Number(int control) const;

  const Resources& resources_;
  const JotletData record_;
  const Options& options_;
  const Clock& clock_;
  bool filled_ = false;
  std::vector<std::int32_t> dates_;  // those that are shown
  Recurrence chosen_;
};

}  // namespace jotlets

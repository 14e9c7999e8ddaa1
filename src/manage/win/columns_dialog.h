// Asks which columns of a table are what in the notes that are made of its rows.
#pragma once

#include <optional>

#include "data/csv_notes.h"
#include "ui/dialog.h"

namespace jotlets {

class BColumnsDlg final : public Dialog {
 public:
  /// `table` is the name of its file; what the preview takes the columns for is proposed.
  BColumnsDlg(const Resources& resources, const CsvPreview& preview, Text table)
      : resources_(resources), preview_(preview), table_(std::move(table)), columns_(preview.columns) {}

  /// The columns that were chosen; nothing when the import was cancelled.
  std::optional<CsvColumns> Ask(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;
  void FillChoices();
  void ShowRows();
  void ShowWords();

  const Resources& resources_;
  const CsvPreview& preview_;
  Text table_;
  CsvColumns columns_;
};

}  // namespace jotlets

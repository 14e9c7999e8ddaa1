// Lists content files that no note claims; the user chooses which of them become notes again.
#pragma once

#include <vector>

#include "data/content_files.h"
#include "ui/dialog.h"

namespace jotlets {

class BOrphanDlg final : public Dialog {
 public:
  explicit BOrphanDlg(std::vector<Orphan> orphans) : orphans_(std::move(orphans)) {}

  /// The chosen ones, after `Show` answered IDOK.
  const std::vector<Orphan>& Chosen() const { return chosen_; }

 private:
  void OnInit() override;
  bool OnCommand(UINT control, UINT notification) override;

  std::vector<Orphan> orphans_;
  std::vector<Orphan> chosen_;
};

}  // namespace jotlets

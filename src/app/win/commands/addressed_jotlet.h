// An open note as commands see it.
#pragma once

#include "command/command_host.h"

namespace jotlets {

class BJotlet;
class CMainFrame;

class AddressedJotlet final : public DesktopJotlet {
 public:
  AddressedJotlet(CMainFrame& frame, BJotlet& jotlet) : frame_(frame), jotlet_(jotlet) {}

  JotletData& Record() override;
  Text PlainText() override;
  Text Rtf() override;
  Text SkinPath() override;
  std::int64_t WindowNumber() override;
  void SetTitle(TextView title) override;
  void SetUserString(TextView words) override;
  void SetColour(Colour colour) override;
  void SetOnTop(bool onTop) override;
  void SetGhost(bool ghost) override;
  void SetHidden(bool hidden) override;
  void SetTransparency(std::int32_t percent) override;
  bool SetRolled(bool rolled) override;
  void MoveTo(Point position) override;
  bool SetPlainText(TextView text) override;
  bool SetRtf(TextView rtf) override;
  bool SetSkin(TextView path) override;
  bool ApplyStyle(TextView name) override;
  bool SetPicture(TextView path) override;
  void CopyContent(bool formatted) override;
  void PasteAtEnd(bool formatted) override;
  bool SaveContent() override;

 private:
  CMainFrame& frame_;
  BJotlet& jotlet_;
};

}  // namespace jotlets

// An open note as commands see it.
#pragma once

#include "app/win/commands/skin_commands.h"
#include "command/command_host.h"
#include "desk/win/note_contents.h"

namespace jotlets {

/// What commands on a note work with.
struct NoteTools {
  const Options& options;
  NoteDesk& desk;
  OpenNotes& notes;
  NoteContents& contents;
  SkinCommands& skins;
  const ProgramWindow& window;
};

class AddressedJotlet final : public DesktopJotlet {
 public:
  AddressedJotlet(const NoteTools& tools, BJotlet& jotlet) : tools_(tools), jotlet_(jotlet) {}

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
  Point ShownAt() override;
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
  const NoteTools& tools_;
  BJotlet& jotlet_;
};

}  // namespace jotlets

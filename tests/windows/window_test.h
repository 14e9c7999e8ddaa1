// The base of the window tests: a scratch data folder, the program running on it, and a client that talks to
// it.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "command/win/command_client.h"
#include "data/data_file.h"
#include "data/data_folder.h"
#include "desktop.h"

namespace jotlets {

/// Failed comparisons of records show their lines.
void PrintTo(const JotletData& record, std::ostream* out);

/// An open note of 220 by 140 pixels.
JotletData NoteRecord(TextView id, Point place, TextView title = {});

class WindowTest : public ::testing::Test {
 protected:
  static constexpr Point kTrayIcon{12, 32};

  void SetUp() override;
  void TearDown() override;

  /// Where data is when no folder holds any.
  static Text ApplicationFolder();

  static void Write(const Text& path, std::string_view bytes);
  /// Writes a plain skin without a rolled form into the data folder.
  void WriteFlatSkin() const;
  static std::string Read(const Text& path);
  /// Every file below a folder, as paths within it, sorted.
  static std::vector<Text> FilesBelow(const Text& folder);
  /// Writes options, and a data file of these notes with a content file for each that reads as its id.
  void WriteData(const std::vector<JotletData>& open, TextView name = kDataFileName,
                 TextView options = u"Debug=0");
  DataFile ParseData(TextView name = kDataFileName) const;
  /// A note's record as the program saves it now; an empty one when it is not among the open ones.
  JotletData Saved(TextView id);
  std::string Log() const { return Read(folder_ + Text(kActivityLogName)); }

  /// Starts a program file and waits until it answers commands.
  bool StartProgram(const Text& arguments = {}, const Text& file = ProgramFile());
  bool StartProgramWith(const std::vector<JotletData>& open, TextView options = u"Debug=0") {
    WriteData(open, kDataFileName, options);
    return StartProgram();
  }
  static Text ProgramFile();
  /// Asks the program to close and waits for its end; its exit code.
  std::optional<DWORD> Close();

  /// The reply to a command; what went wrong in brackets when there is none.
  Text Reply(TextView command) { return ReplyTo(client_, command); }
  static Text ReplyTo(CommandClient& client, TextView command);
  /// What a reply holds behind `status`.
  Text Value(TextView command, TextView status = u"001 ");
  std::vector<Text> List(TextView list);
  Text TextOf(const Text& id) { return UnhexTitle(Value(u"get desktop " + id + u" utext")); }
  Text Create(const Text& text) { return Value(u"do new jotlet " + text, u"000 OK created: "); }

  /// Every line that the program has sent since it was last asked, replies and events, in order. It must log
  /// at level 3.
  std::vector<Text> Sent();

  /// The program's dialog with this control, once it is there.
  HWND DialogWith(int control) const;
  /// The program's dialog in front, once it is there; null when none comes.
  HWND DialogInFront() const;
  /// How many menus of the program can be seen, a menu beside another one counted.
  std::size_t OpenMenus() const;
  bool MenuIsOpen() const { return OpenMenus() > 0; }
  /// Opens the menu of the tray icon and presses keys in it.
  void ChooseInTrayMenu(std::initializer_list<WORD> keys) const;

  static HWND MainWindow();
  /// The visible note with this title, once it is there.
  static HWND NoteTitled(const Text& title);
  /// Where a note is taken hold of.
  static Point Title(HWND note) { return {BoundsOf(note).left + 60, BoundsOf(note).top + 9}; }
  /// Adds notes to those that are selected.
  static void Select(std::initializer_list<Text> titles);

  Text scratch_;  // the folder of this test
  Text folder_;   // the data folder in it
  std::unique_ptr<Process> program_ = std::make_unique<Process>();
  CommandClient client_;

 private:
  std::size_t logRead_ = 0;
};

}  // namespace jotlets

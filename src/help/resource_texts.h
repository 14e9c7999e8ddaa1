// The texts, menus and keys of the resource scripts, read from their sources: where reference pages are made
// there is no program to ask.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace jotlets {

class ResourceTexts {
 public:
  struct Entry {
    Text text;  // as the script has it, with its mark and its key
    int id = 0;
  };
  struct Accelerator {
    Text key;  // in words
    int id = 0;
  };

  /// Reads the header with the numbers, then the scripts.
  ResourceTexts(std::string_view header, const std::vector<std::string>& scripts);

  /// A text of a string table; empty when there is none.
  Text String(int id) const;
  /// The entries of a menu, by the name of the menu; none when there is no such menu.
  const std::vector<Entry>& Menu(const std::string& name) const;
  const std::vector<Accelerator>& Accelerators() const { return accelerators_; }

 private:
  void ReadNumber(std::string_view line);
  void ReadLine(std::string_view line);
  void ReadAccelerator(std::string_view line);
  int NumberOf(std::string_view word) const;

  std::map<std::string, int, std::less<>> numbers_;
  std::map<int, Text> strings_;
  std::map<std::string, std::vector<Entry>> menus_;
  std::vector<Accelerator> accelerators_;
  std::string resource_;  // whose lines are being read
};

}  // namespace jotlets

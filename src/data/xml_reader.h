// An XML file, read piece by piece. Only what stands in the file counts: nothing that it names is fetched,
// and entities cannot make much of little.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/text.h"

struct XML_ParserStruct;

namespace jotlets {

class XmlReader {
 public:
  explicit XmlReader(std::string bytes);
  virtual ~XmlReader();
  XmlReader(const XmlReader&) = delete;
  XmlReader& operator=(const XmlReader&) = delete;

  /// Reads on; false when there is no more, be it for a fault.
  bool ReadPiece();
  /// Why it cannot be read any further, with the line; empty for none.
  const Text& XmlFault() const { return fault_; }
  int PercentRead() const;

 protected:
  class Attributes {
   public:
    explicit Attributes(const char* const* rows) : rows_(rows) {}
    /// Its value; nothing when the element has none of this name.
    std::string_view Find(std::string_view name) const;

   private:
    const char* const* rows_;
  };

  /// Texts are UTF-8; that of an element may come in several parts.
  virtual void OnBegin(std::string_view name, const Attributes& attributes) = 0;
  virtual void OnEnd(std::string_view name) = 0;
  virtual void OnWords(std::string_view words) = 0;

 private:
  struct Freer {
    void operator()(XML_ParserStruct* parser) const;
  };
  struct Calls;

  void Fail(Text why);

  const std::string bytes_;
  std::size_t at_ = 0;
  std::size_t depth_ = 0;
  bool ended_ = false;
  std::unique_ptr<XML_ParserStruct, Freer> parser_;
  Text fault_;
};

}  // namespace jotlets

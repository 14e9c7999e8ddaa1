// Any text as what is typed to search for: a query of bounded size whose terms have words.
#include "store/search_query.h"

#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace jotlets;
  const std::string_view bytes = Bytes(data, size);
  for (const Text& typed : {FromUtf8(bytes), Units(bytes)}) {
    const SearchQuery query = ParseSearchQuery(typed);
    std::size_t length = 0;
    for (const SearchTerm& term : query.terms) {
      Check(!TrimBlanks(term.words).empty());
      length += term.words.size();
    }
    Check(query.terms.size() <= 32 && length <= typed.size() && length <= 1000);
    for (const auto& day : {query.after, query.before}) Check(!day || (day->month >= 1 && day->month <= 12));
  }
  return 0;
}

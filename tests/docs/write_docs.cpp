// Writes the pages that are made into docs/ of the repository that it is given.
#include <cstdio>

#include "documents.h"

int main(int count, char** arguments) {
  if (count != 2) return 2;
  const std::string root = arguments[1];
  for (const jotlets::Document& page : jotlets::MadeDocuments(root)) {
    const std::string path = root + "/docs/" + page.name;
    if (jotlets::FileOf(path) == page.bytes) continue;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << page.bytes;
    if (!file.flush()) return std::printf("%s cannot be written\n", path.c_str()), 1;
    std::printf("docs/%s\n", page.name.c_str());
  }
  return 0;
}

#include "system/terminal.h"

#include <cstdio>

namespace quillbox {

std::string ReadInputLine() {
  std::string line;
  for (int c = std::getchar(); c != EOF && c != '\n'; c = std::getchar()) {
    if (line.size() == kLongestLine) return "";
    if (c != '\r') line += static_cast<char>(c);
  }
  return line;
}

}  // namespace quillbox

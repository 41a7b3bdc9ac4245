// What is done in the same way on every system.
#include <cstdio>

#include "system/terminal.h"
#include "system/watch_state.h"
#include "system/watchdog.h"

namespace quillbox {

std::string ReadInputLine() {
  std::string line;
  for (int c = std::getchar(); c != EOF && c != '\n'; c = std::getchar()) {
    if (line.size() == kLongestLine) return "";
    if (c != '\r') line += static_cast<char>(c);
  }
  return line;
}

void EndWatch() {
  if (watch.Stop()) AwaitEnd();
}

Unwatched::Unwatched() {
  if (watch.Hold()) AwaitEnd();
}

Unwatched::~Unwatched() {
  if (watch.Release()) EndOverdue();
}

}  // namespace quillbox

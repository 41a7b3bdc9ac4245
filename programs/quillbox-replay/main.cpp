// Quillbox's own logic on a command line, without a desktop and without a network.
#include <algorithm>
#include <iostream>
#include <string>

#include "quillbox-replay/commands.h"
#include "system/process_start.h"

namespace {

// One line, whatever the arguments held.
void TellMistake(std::string what) {
  std::replace(what.begin(), what.end(), '\n', ' ');
  std::cerr << "quillbox-replay: " << what << '\n';
}

}  // namespace

int main(int count, char** texts) {
  try {
    return quillbox::RunCommand(quillbox::BeginOnCommandLine(count, texts), QUILLBOX_VERSION);
  } catch (const std::exception& failure) {
    TellMistake(failure.what());
    return 2;
  }
}

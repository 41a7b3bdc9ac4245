// What a program does first: it guards its secrets, and answers questions about itself.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace quillbox {

// From here on new files are for their owner alone, a crash leaves no core file, and no other
// process of the same user can read this one's memory. Call it first thing in main. Gives the file
// mask that was in force: the person's own, which the person's own programs are to have.
mode_t ProtectProcess();

// For a program without secrets of its own: from here on new files are for their owner alone, and
// the standard streams carry bytes as they are. Gives the arguments without the program's own name,
// in the host's own bytes (on Windows UTF-8).
std::vector<std::string> BeginOnCommandLine(int count, const char* const* arguments);

struct ProgramWords {
  std::string Name;
  std::string Version;
  std::string Help;  // how it is called and what it does, without the line end
};

// When the first argument is --help, -h or --version, prints what was asked for and gives true: the
// program has nothing more to do. Call it before anything that needs a display.
bool AnswersQuestion(int count, const char* const* arguments, const ProgramWords& words);

}  // namespace quillbox

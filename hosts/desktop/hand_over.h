// Secrets for the fetch program, by its standard input.
#pragma once

#include <sys/types.h>

#include <QProcessEnvironment>
#include <string>

namespace quillbox {

struct HandOver {
  QString Program;   // full path of the fetch program
  QString Command;   // its argument
  std::string Line;  // its input, without the line end
  QProcessEnvironment Environment = QProcessEnvironment::systemEnvironment();
  mode_t FileMask = 0;  // under which it starts
};

// Starts it; it goes on when this program ends. The line has left this program when this returns,
// since the program may end right then; it is to be short enough for a pipe (64 KiB), or this waits
// until it is read, two seconds at most. That it can't be started shows nothing.
void HandToFetchProgram(const HandOver& handOver);

}  // namespace quillbox

#include "crash_code.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "request/answer.h"
#include "result_files.h"

namespace quillbox {
namespace {

struct Paths {
  std::string Data, Log, Part;
};

// The one thing that must be global: a signal's handler is told nothing. Set once.
const Paths* paths = nullptr;

bool WriteCode() {
  const char code = static_cast<char>('0' + static_cast<int>(ResultCode::kNoAnswer));
  const int file =
      ::open(paths->Part.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, S_IRUSR | S_IWUSR);
  return file >= 0 && ::write(file, &code, 1) == 1 && ::fsync(file) == 0 &&
         ::rename(paths->Part.c_str(), paths->Log.c_str()) == 0;
}

// Calls nothing but what a handler may call.
void LeaveCode(int) {
  ::unlink(paths->Data.c_str());
  ::unlink(paths->Part.c_str());
  ::_exit(WriteCode() ? EXIT_SUCCESS : EXIT_FAILURE);
}

}  // namespace

void LeaveCodeOnCrash(const std::string& dataPath, const std::string& logPath) {
  static const Paths kPaths{dataPath, logPath, PartPath(logPath)};
  paths = &kPaths;
  struct sigaction action {};
  action.sa_handler = &LeaveCode;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  for (const int crash : {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT}) {
    ::sigaction(crash, &action, nullptr);
  }
}

}  // namespace quillbox

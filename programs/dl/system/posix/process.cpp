#include "system/process.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstring>

#include "system/posix/special.h"

namespace quillbox {
namespace {

// Volatile, since nobody in this program reads the bytes again.
void Overwrite(volatile char* text) {
  for (; *text != '\0'; ++text) *text = '\0';
}

}  // namespace

std::string TakeArguments(int argc, char** argv) {
  std::size_t size = 0;
  for (int i = 1; i < argc; ++i) size += std::strlen(argv[i]) + 1;
  std::string text;
  text.reserve(size);
  for (int i = 1; i < argc; ++i) {
    if (i > 1) text += ' ';
    text += argv[i];
    Overwrite(argv[i]);
  }
  return text;
}

// They are bytes.
void RestoreBytes(std::string&) {}

unsigned NarrowFileMask() {
  return ::umask(077);
}

void GuardProcess() {
  const rlimit none{0, 0};
  ::setrlimit(RLIMIT_CORE, &none);
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  ForbidInspection();
}

}  // namespace quillbox

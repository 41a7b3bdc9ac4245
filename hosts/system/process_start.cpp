#include "system/process_start.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <iostream>
#include <string_view>

#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace quillbox {

mode_t ProtectProcess() {
  const mode_t before = ::umask(S_IRWXG | S_IRWXO);
  const rlimit none{};
  ::setrlimit(RLIMIT_CORE, &none);
#ifdef __linux__
  ::prctl(PR_SET_DUMPABLE, 0);
#endif
  return before;
}

std::vector<std::string> BeginOnCommandLine(int count, const char* const* arguments) {
  ::umask(S_IRWXG | S_IRWXO);
  return {arguments + std::min(count, 1), arguments + count};
}

bool AnswersQuestion(int count, const char* const* arguments, const ProgramWords& words) {
  const std::string_view first = count > 1 ? arguments[1] : "";
  if (first == "--version") {
    std::cout << words.Name << ' ' << words.Version << std::endl;
    return true;
  }
  const bool help = first == "--help" || first == "-h";
  if (help) std::cout << words.Help << std::endl;
  return help;
}

}  // namespace quillbox

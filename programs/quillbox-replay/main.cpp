// Quillbox's own logic on a command line, without a desktop and without a network.
#include <sys/stat.h>

#include <algorithm>
#include <iostream>
#include <vector>

#include "quillbox-replay/commands.h"

namespace quillbox {
namespace {

constexpr std::string_view kUsage =
    "usage: quillbox-replay evaluate --settings FILE.ini --account NAME [--reports FOLDER]\n"
    "                                [--region NAME] [--at 2007-01-31T09:05:00] [--save]\n"
    "       quillbox-replay report --title TITLE --reports FILE [--region NAME] --out Report.html\n"
    "       quillbox-replay script FILE\n"
    "       quillbox-replay batch\n";

struct Command {
  std::string_view Name;
  int (*Run)(Arguments arguments);
};

constexpr Command kCommands[] = {
    {"evaluate", EvaluateCommand},
    {"report", ReportPageCommand},
    {"script", ScriptCommand},
    {"batch", BatchCommand},
};

int Run(Arguments arguments) {
  if (arguments.empty()) {
    throw UsageError("say what to do: evaluate, report, script or batch (--help tells more)");
  }
  if (arguments.front() == "--help") {
    std::cout << kUsage;
    return 0;
  }
  const auto* const found = std::find_if(
      std::begin(kCommands), std::end(kCommands),
      [&arguments](const Command& command) { return command.Name == arguments.front(); });
  if (found == std::end(kCommands)) {
    throw UsageError("unknown way to use it: " + std::string(arguments.front()));
  }
  return found->Run(arguments.subspan(1));
}

// One line, whatever the arguments held.
void TellMistake(std::string what) {
  std::replace(what.begin(), what.end(), '\n', ' ');
  std::cerr << "quillbox-replay: " << what << '\n';
}

}  // namespace
}  // namespace quillbox

int main(int count, char** texts) {
  umask(S_IRWXG | S_IRWXO);
  const std::vector<std::string_view> arguments(texts + std::min(count, 1), texts + count);
  try {
    return quillbox::Run(arguments);
  } catch (const std::exception& failure) {
    quillbox::TellMistake(failure.what());
    return 2;
  }
}

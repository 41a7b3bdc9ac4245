// Quillbox's own logic on a command line, without a desktop and without a network.
#include <algorithm>
#include <iostream>
#include <utility>
#include <vector>

#include "quillbox-replay/commands.h"
#include "system/process_start.h"

namespace quillbox {
namespace {

int Run(std::vector<std::string> arguments) {
  CLI::App program("Runs Quillbox's own logic, without a desktop and without a network.",
                   "quillbox-replay");
  program.set_version_flag("--version", "quillbox-replay " QUILLBOX_VERSION);
  program.require_subcommand(0, 1);
  std::optional<int> exitCode;
  AddEvaluateCommand(program, exitCode);
  AddReportCommand(program, exitCode);
  AddScriptCommand(program, exitCode);
  AddBatchCommand(program, exitCode);
  try {
    std::reverse(arguments.begin(), arguments.end());  // as the parser wants them
    program.parse(std::move(arguments));
  } catch (const CLI::Success& question) {
    return program.exit(question);
  }
  if (exitCode) return *exitCode;
  throw UsageError("say what to do: evaluate, report, script or batch (--help tells more)");
}

// One line, whatever the arguments held.
void TellMistake(std::string what) {
  std::replace(what.begin(), what.end(), '\n', ' ');
  std::cerr << "quillbox-replay: " << what << '\n';
}

}  // namespace
}  // namespace quillbox

int main(int count, char** texts) {
  try {
    return quillbox::Run(quillbox::BeginOnCommandLine(count, texts));
  } catch (const std::exception& failure) {
    quillbox::TellMistake(failure.what());
    return 2;
  }
}

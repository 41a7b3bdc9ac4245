// A script on the simulated host.
#include <fstream>
#include <iostream>

#include "quillbox-replay/commands.h"
#include "simulated/script_run.h"

namespace quillbox {

int ScriptCommand(Arguments arguments) {
  if (arguments.size() != 1 || arguments.front().starts_with('-')) {
    throw UsageError("script needs one file and takes no options");
  }
  const std::string path(arguments.front());
  std::ifstream script(path, std::ios::binary);
  if (!script || script.peek() == std::ifstream::traits_type::eof()) {
    throw UsageError("can't read the script " + path);
  }
  std::string error;
  const int code = RunScript(script, std::cout, error);
  if (code != kScriptDone) throw UsageError(path + ": " + error);
  return code;
}

}  // namespace quillbox

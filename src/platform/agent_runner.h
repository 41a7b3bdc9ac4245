// Starting, watching and ending runs of the fetch program.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace quillbox {

using AgentId = int;

struct AgentStart {
  std::string Text;  // code page; the agent's one argument; holds secrets
  // Added to the agent's environment, in the code page; an empty value takes the variable out.
  std::vector<std::pair<std::string, std::string>> Environment;
};

// The host ends every agent that still runs when the program ends.
class AgentRunner {
 public:
  virtual ~AgentRunner() = default;

  // Starts the fetch program without a shell and returns at once. A start that fails shows in
  // Running being false. The text is never logged or kept.
  virtual AgentId Start(const AgentStart& start) = 0;

  // False when it has ended, never started, or `agent` is unknown.
  virtual bool Running(AgentId agent) = 0;

  // Ends it, so that afterwards it writes no file any more. Ending what doesn't run is a success.
  virtual void End(AgentId agent) = 0;
};

}  // namespace quillbox

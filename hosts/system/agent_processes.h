// Runs of the fetch program as child processes.
#pragma once

#include <map>
#include <string>

#include <sys/types.h>

#include "platform/agents.h"

namespace quillbox {

// The agent's text reaches it byte for byte; a toolkit's process class would recode it. A child is
// never detached: it is known until it has ended, can be ended with all that it started, and the
// system kills it when this process dies, however that happens. Nothing wakes when a child ends;
// whoever waits for it asks, and by the answer what it started has been ended too.
class AgentProcesses : public AgentRunner {
 public:
  // `program`: full path of the fetch program, in the host's bytes.
  explicit AgentProcesses(std::string program) : program_(std::move(program)) {}
  ~AgentProcesses() override { EndAll(); }
  AgentProcesses(const AgentProcesses&) = delete;
  AgentProcesses& operator=(const AgentProcesses&) = delete;

  // Input and outputs of the agent lead nowhere. Environment values go out as UTF-8.
  AgentId Start(const AgentStart& start) override;
  bool Running(AgentId agent) override;
  void End(AgentId agent) override;

  void EndAll();

 private:
  const std::string program_;
  std::map<AgentId, pid_t> children_;  // not yet known to have ended
  AgentId last_ = 0;
};

}  // namespace quillbox

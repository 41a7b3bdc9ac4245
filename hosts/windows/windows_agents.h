// Runs of the fetch program: those that fetch, and those that get access from a person or give it
// back.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/agents.h"

namespace quillbox {

class StartedProgram;
class Timers;

// The agent's text reaches it as the UTF-16 of its characters. Nothing wakes when an agent ends;
// whoever waits for it asks.
class WindowsAgents : public AgentRunner {
 public:
  // `program`: full path of the fetch program.
  explicit WindowsAgents(std::string program);
  ~WindowsAgents() override;

  AgentId Start(const AgentStart& start) override;
  bool Running(AgentId agent) override;
  void End(AgentId agent) override;

  void EndAll();

 private:
  const std::string program_;
  std::map<AgentId, std::unique_ptr<StartedProgram>> running_;  // not yet known to have ended
  AgentId last_ = 0;
};

// Each asking is a run of `dl authorize`, each forgetting one of `dl revoke`, which goes on without
// the program. While an asking goes on a timer looks whether it has ended.
class WindowsGrantAsker : public GrantAsker {
 public:
  // `timers` must outlive it.
  WindowsGrantAsker(std::string program, Timers& timers)
      : program_(std::move(program)), timers_(timers) {}

  std::unique_ptr<GrantAsking> Ask(const GrantQuestion& question,
                                   std::function<void(const GrantAnswer&)> done) override;
  void Forget(const std::string& name,
              const std::vector<std::pair<std::string, std::string>>& environment) override;

 private:
  const std::string program_;
  Timers& timers_;
};

}  // namespace quillbox

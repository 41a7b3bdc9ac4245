// The fetch program, simulated: what it reads of its argument, and how its runs go.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/agents.h"
#include "simulated/simulated_files.h"
#include "simulated/simulated_trace.h"

namespace quillbox {

struct AgentText {
  std::string Username;  // decoded; empty in a plain request
  std::string Password;  // decoded
  std::string Address;
  std::string DataPath, LogPath;
};

// The paths stand at the end, each behind a "|"; the request ends its form data at the last "%#%".
// What is missing is empty.
AgentText ReadAgentText(std::string_view text);

// What stands behind the path's last separator.
std::string NameOfPath(std::string_view path);

// Runs of the fetch program that do what they are told, when they are told to.
// Times count from the start of the run.
struct AgentBehaviour {
  // Which runs it fits: the name of the data file without its folder, and the e-mail address in
  // the request. Empty: any.
  std::string DataFile;
  std::string Username;

  bool Starts = true;
  std::optional<std::string> Data;  // none: no data file
  std::chrono::milliseconds DataAfter{300};
  std::optional<std::string> Log;  // none: no log
  std::chrono::milliseconds LogAfter{400};
  std::optional<std::chrono::milliseconds> EmptyLogAfter;  // an empty log before the full one

  // When the run ends. None: with its log; without a log it stays, silent, for ever.
  std::optional<std::chrono::milliseconds> EndAfter;

  // Up to so much is added to every time above, the same to each in one run.
  std::chrono::milliseconds Jitter{0};
};

class SimulatedAgents final : public AgentRunner {
 public:
  // All must outlive the agents. `seed` decides the jitter.
  SimulatedAgents(SimulatedTime& time, SimulatedFiles& files, SimulatedTrace& trace,
                  std::uint64_t seed);

  // For the next run that it fits; of several the one that was added first.
  void Once(AgentBehaviour behaviour) { once_.push_back(std::move(behaviour)); }
  // For all runs that it fits and that no other serves; of several the one that was added last.
  // A run that nothing fits logs "1", it could not connect.
  void Always(AgentBehaviour behaviour) { always_.push_front(std::move(behaviour)); }

  // Everything that was asked for, in order; with the secrets in it.
  const std::vector<AgentStart>& Starts() const { return starts_; }

  std::size_t RunningCount() const { return running_.size(); }

  // The process that started them is gone.
  void EndAll();

  // AgentRunner
  AgentId Start(const AgentStart& start) override;
  bool Running(AgentId agent) override { return running_.contains(agent); }
  void End(AgentId agent) override;

 private:
  AgentBehaviour TakeBehaviour(const std::string& dataFile, const std::string& username);
  void Schedule(AgentId agent, const AgentBehaviour& behaviour, const std::string& dataPath,
                const std::string& logPath);
  void Stop(AgentId agent);
  void Write(AgentId agent, const std::string& path, const std::string& content);

  SimulatedTime& time_;
  SimulatedFiles& files_;
  SimulatedTrace& trace_;
  std::mt19937_64 random_;
  std::list<AgentBehaviour> once_, always_;
  std::vector<AgentStart> starts_;
  AgentId last_ = 0;
  std::map<AgentId, std::vector<SimulatedTime::EventId>> running_;  // and what they have yet to do
};

}  // namespace quillbox

#include "simulated/simulated_agents.h"

#include <algorithm>
#include <utility>

#include "text/escaping.h"

namespace quillbox {
namespace {

// The text behind the last `mark`, which is cut off together with the mark.
std::string_view TakeBehindLast(std::string_view& text, std::string_view mark) {
  const std::size_t at = text.rfind(mark);
  if (at == std::string_view::npos) return {};
  const std::string_view behind = text.substr(at + mark.size());
  text = text.substr(0, at);
  return behind;
}

}  // namespace

AgentText ReadAgentText(std::string_view text) {
  AgentText read;
  read.LogPath = TakeBehindLast(text, "|");
  read.DataPath = TakeBehindLast(text, "|");
  if (text.find("%#%") == std::string_view::npos) {
    read.Address = text;
    return read;
  }
  read.Address = TakeBehindLast(text, "%#%");
  read.Password = DecodeFormValue(TakeBehindLast(text, "&Passwd="));
  read.Username = DecodeFormValue(TakeBehindLast(text, "Email="));
  return read;
}

std::string NameOfPath(std::string_view path) {
  return std::string(path.substr(path.find_last_of('/') + 1));
}

namespace {

using std::chrono::milliseconds;

bool Fits(const AgentBehaviour& behaviour, const std::string& dataFile,
          const std::string& username) {
  return (behaviour.DataFile.empty() || behaviour.DataFile == dataFile) &&
         (behaviour.Username.empty() || behaviour.Username == username);
}

AgentBehaviour CouldNotConnect() {
  AgentBehaviour behaviour;
  behaviour.Log = "1";
  return behaviour;
}

}  // namespace

SimulatedAgents::SimulatedAgents(SimulatedTime& time, SimulatedFiles& files, SimulatedTrace& trace,
                                 std::uint64_t seed)
    : time_(time), files_(files), trace_(trace), random_(seed) {}

AgentId SimulatedAgents::Start(const AgentStart& start) {
  trace_.Keep(starts_, start);
  const AgentId agent = ++last_;
  const AgentText text = ReadAgentText(start.Text);
  const std::string dataFile = NameOfPath(text.DataPath);
  const AgentBehaviour behaviour = TakeBehaviour(dataFile, text.Username);
  const std::string failed = behaviour.Starts ? "" : ", failed";
  trace_.Add("agent", "start " + std::to_string(agent) + " " + dataFile + failed);
  if (behaviour.Starts) Schedule(agent, behaviour, text.DataPath, text.LogPath);
  return agent;
}

AgentBehaviour SimulatedAgents::TakeBehaviour(const std::string& dataFile,
                                              const std::string& username) {
  const auto fits = [&](const AgentBehaviour& behaviour) {
    return Fits(behaviour, dataFile, username);
  };
  const auto once = std::ranges::find_if(once_, fits);
  if (once != once_.end()) {
    AgentBehaviour taken = std::move(*once);
    once_.erase(once);
    return taken;
  }
  const auto always = std::ranges::find_if(always_, fits);
  return always == always_.end() ? CouldNotConnect() : *always;
}

void SimulatedAgents::Schedule(AgentId agent, const AgentBehaviour& behaviour,
                               const std::string& dataPath, const std::string& logPath) {
  const auto span = static_cast<std::uint64_t>(behaviour.Jitter.count()) + 1;
  const milliseconds late{static_cast<milliseconds::rep>(random_() % span)};
  auto& plan = running_[agent];
  const auto write = [&](milliseconds after, const std::string& path, const std::string& content) {
    plan.push_back(
        time_.After(after + late, [this, agent, path, content] { Write(agent, path, content); }));
  };
  if (behaviour.Data) write(behaviour.DataAfter, dataPath, *behaviour.Data);
  if (behaviour.EmptyLogAfter) write(*behaviour.EmptyLogAfter, logPath, "");
  if (behaviour.Log) write(behaviour.LogAfter, logPath, *behaviour.Log);
  if (!behaviour.EndAfter && !behaviour.Log) return;
  const milliseconds end = behaviour.EndAfter.value_or(behaviour.LogAfter) + late;
  plan.push_back(time_.After(end, [this, agent] { Stop(agent); }));
}

void SimulatedAgents::Stop(AgentId agent) {
  const auto run = running_.find(agent);
  if (run == running_.end()) return;
  for (const auto& event : run->second) time_.Cancel(event);
  running_.erase(run);
}

void SimulatedAgents::Write(AgentId agent, const std::string& path, const std::string& content) {
  const bool written = files_.WriteFromOutside(path, content);
  trace_.Add("agent", "write " + std::to_string(agent) + " " + NameOfPath(path) +
                          (written ? "" : ", failed"));
}

void SimulatedAgents::EndAll() {
  while (!running_.empty()) End(running_.begin()->first);
}

void SimulatedAgents::End(AgentId agent) {
  if (!Running(agent)) return;
  trace_.Add("agent", "end " + std::to_string(agent));
  Stop(agent);
}

}  // namespace quillbox

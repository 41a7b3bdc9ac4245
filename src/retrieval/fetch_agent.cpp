#include "retrieval/fetch_agent.h"

#include <algorithm>

#include "platform/storage.h"
#include "platform/timing.h"
#include "text/code_page.h"
#include "text/escaping.h"

namespace quillbox {
namespace {

bool AnyRuns(const Host& host, const std::vector<AgentId>& agents) {
  return std::any_of(agents.begin(), agents.end(),
                     [&host](AgentId agent) { return host.Agents.Running(agent); });
}

bool HoldsSomething(const Host& host, const std::string& log) {
  return host.Disk.Size(log).value_or(0) > 0;
}

}  // namespace

AgentId RunFetchAgent(const ProgramContext& program, const std::string& text) {
  return program.Host.Agents.Start({text, StoredProxyVariables(program.Store)});
}

std::vector<std::pair<std::string, std::string>> StoredProxyVariables(const SettingsStore& store) {
  return ProxyVariables(store.ReadSetting(kProxyServer), store.ReadSetting(kProxyPort),
                        ReadProxyUsername(store), ReadProxyPassword(store));
}

std::vector<std::pair<std::string, std::string>> ProxyVariables(std::string_view server,
                                                                std::string_view port,
                                                                std::string_view username,
                                                                std::string_view password) {
  if (server.empty()) return {};
  std::string address;
  std::string host(server);
  // A person may write the kind of proxy in front, as in "socks5://host".
  if (const std::size_t scheme = host.find("://"); scheme != std::string::npos) {
    address = host.substr(0, scheme + 3);
    host.erase(0, scheme + 3);
  } else {
    address = "http://";
  }
  if (!username.empty() || !password.empty()) {
    address += PercentEncode(ToUtf8(username)) + ":" + PercentEncode(ToUtf8(password)) + "@";
  }
  address += host;
  if (!port.empty()) address += ":" + std::string(port);
  return {{"http_proxy", address}, {"https_proxy", address}};
}

void WaitTicks(const Host& host, int passes) {
  for (int pass = 0; pass < passes; ++pass) {
    host.Events.Sleep(std::chrono::milliseconds(1));
    host.Events.PumpEvents();
  }
}

AgentOutcome WaitForLogs(const Host& host, const std::vector<std::string>& logs,
                         const std::vector<AgentId>& agents) {
  const TimePoint asked = host.Time.Now();
  for (;;) {
    host.Events.PumpEvents();
    WaitTicks(host, 1);
    // Whether an agent runs is asked first: one that ends after that has written its log by then.
    const bool running = AnyRuns(host, agents);
    const auto answered = [&host](const std::string& log) { return HoldsSomething(host, log); };
    if (std::all_of(logs.begin(), logs.end(), answered)) return AgentOutcome::kAnswered;
    if (!running || host.Time.Now() - asked >= kLongestAgentWait) return AgentOutcome::kNoResponse;
  }
}

}  // namespace quillbox

// Running the fetch program and waiting for what it leaves.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/agents.h"
#include "platform/host.h"
#include "state/program_context.h"

namespace quillbox {

// Starts the agent with `text` and the stored proxy, and returns at once.
AgentId RunFetchAgent(const ProgramContext& program, const std::string& text);

// ProxyVariables of the stored proxy.
std::vector<std::pair<std::string, std::string>> StoredProxyVariables(const SettingsStore& store);

// The variables through which the agent's network library learns of a proxy; none without a server.
std::vector<std::pair<std::string, std::string>> ProxyVariables(std::string_view server,
                                                                std::string_view port,
                                                                std::string_view username,
                                                                std::string_view password);

// `passes` times: sleep 1 ms, then pump events once.
void WaitTicks(const Host& host, int passes);

enum class AgentOutcome { kAnswered, kNoResponse };

// The longest wait for an answer.
inline constexpr std::chrono::seconds kLongestAgentWait{120};

// Pumps events until every log exists and then holds something. Ends without an answer after
// kLongestAgentWait, or when a log is missing or empty while none of the agents runs any more. It
// looks for the answer before it looks at the clock, since a wait that is nested in its pump can
// outlast it.
AgentOutcome WaitForLogs(const Host& host, const std::vector<std::string>& logs,
                         const std::vector<AgentId>& agents);

}  // namespace quillbox

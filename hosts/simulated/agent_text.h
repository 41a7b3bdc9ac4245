// The fetch program's argument, as a simulated run reads it.
#pragma once

#include <string>
#include <string_view>

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

}  // namespace quillbox

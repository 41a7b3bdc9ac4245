// The fetch program's argument, as a simulated run reads it.
#include "simulated/agent_text.h"

#include "text/form_encoding.h"

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

}  // namespace quillbox

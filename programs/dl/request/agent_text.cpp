#include "request/agent_text.h"

#include "text/code_page.h"
#include "text/escaping.h"

namespace quillbox {
namespace {

constexpr std::string_view kEndOfForm = "%#%";
constexpr std::string_view kEmailName = "Email=";
constexpr std::string_view kPasswordName = "&Passwd=";

// Encoded values hold no bare "&" and no bare "=", so each name stands where it is found first.
std::optional<Credentials> ParseForm(std::string_view form) {
  if (!form.starts_with(kEmailName)) return std::nullopt;
  form.remove_prefix(kEmailName.size());
  const std::size_t cut = form.find(kPasswordName);
  if (cut == std::string_view::npos) return std::nullopt;
  return Credentials{DecodeFormValue(form.substr(0, cut)),
                     DecodeFormValue(form.substr(cut + kPasswordName.size()))};
}

}  // namespace

std::optional<AgentText> SplitAgentText(std::string_view text) {
  const std::size_t logCut = text.rfind('|');
  if (logCut == std::string_view::npos || logCut == 0) return std::nullopt;
  const std::size_t dataCut = text.rfind('|', logCut - 1);
  if (dataCut == std::string_view::npos) return std::nullopt;
  AgentText parts{std::string(text.substr(0, dataCut)),
                  std::string(text.substr(dataCut + 1, logCut - dataCut - 1)),
                  std::string(text.substr(logCut + 1))};
  if (parts.DataPath.empty() || parts.LogPath.empty()) return std::nullopt;
  return parts;
}

std::optional<AgentRequest> ParseAgentRequest(std::string_view request) {
  AgentRequest parsed;
  const std::size_t cut = request.rfind(kEndOfForm);
  if (cut != std::string_view::npos) {
    parsed.SignIn = ParseForm(request.substr(0, cut));
    if (!parsed.SignIn) return std::nullopt;
    request.remove_prefix(cut + kEndOfForm.size());
  }
  if (request.empty()) return std::nullopt;
  parsed.Address = std::string(request);
  return parsed;
}

std::string SignInForm(const Credentials& credentials) {
  return "Email=" + PercentEncode(ToUtf8(credentials.Email)) +
         "&Passwd=" + PercentEncode(ToUtf8(credentials.Password));
}

}  // namespace quillbox

#include "oauth/consent.h"

#include <algorithm>

#include "text/escaping.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

std::string DecodeValue(std::string value) {
  std::ranges::replace(value, '+', ' ');
  return DecodeFormValue(value);
}

}  // namespace

std::string FieldOf(const QueryFields& fields, const std::string& name) {
  const auto field = fields.find(name);
  return field == fields.end() ? "" : field->second;
}

bool IsWholeHead(std::string_view received) {
  return received.find("\r\n\r\n") != std::string_view::npos;
}

std::optional<std::string_view> TargetOf(std::string_view head) {
  constexpr std::string_view kMethod = "GET ";
  const std::string_view line = head.substr(0, head.find_first_of("\r\n"));
  const std::size_t end = line.rfind(" HTTP/1.");
  if (!line.starts_with(kMethod) || end == std::string_view::npos) return std::nullopt;
  if (end < kMethod.size()) return std::nullopt;
  return line.substr(kMethod.size(), end - kMethod.size());
}

std::optional<QueryFields> ReadPageRequest(std::string_view head) {
  constexpr std::string_view kBeginning = "/?";
  const auto target = TargetOf(head);
  if (!target || !target->starts_with(kBeginning)) return std::nullopt;
  QueryFields fields;
  for (const std::string& field : SplitText(target->substr(kBeginning.size()), "&")) {
    const std::size_t cut = field.find('=');
    if (cut == std::string::npos) continue;
    fields[field.substr(0, cut)] = DecodeValue(field.substr(cut + 1));
  }
  return fields;
}

std::string ConsentAddress(const ConsentQuestion& question) {
  std::string address = question.Page + "?response_type=code";
  const auto add = [&](const char* key, const std::string& value) {
    address.append("&").append(key).append("=").append(PercentEncode(value));
  };
  add("client_id", question.ClientId);
  add("redirect_uri", question.Redirect);
  add("scope", question.Scope);
  add("state", question.State);
  add("code_challenge", question.Challenge);
  add("code_challenge_method", "S256");
  if (!question.Email.empty()) add("login_hint", question.Email);
  return address;
}

std::optional<ConsentAnswer> ReadConsent(const QueryFields& query) {
  ConsentAnswer answer{FieldOf(query, "state"), FieldOf(query, "code"), FieldOf(query, "error")};
  const bool whole = !answer.State.empty() && answer.Code.empty() != answer.Error.empty();
  return whole ? std::optional(std::move(answer)) : std::nullopt;
}

}  // namespace quillbox

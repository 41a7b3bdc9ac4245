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

// Paper and ink, and in the dark ink and paper. Nothing is loaded from anywhere.
constexpr const char* kHead = R"(<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1"><title>Quillbox</title><style>
:root { color-scheme: light dark; --paper: #fafafb; --ink: #001a35; --line: #001a3540; --quill: #007a00; }
@media (prefers-color-scheme: dark) {
  :root { --paper: #001a35; --ink: #fafafb; --line: #fafafb50; --quill: #80d080; }
}
body { margin: 0; background: var(--paper); color: var(--ink); font: 1rem/1.5 system-ui, sans-serif; }
main { box-sizing: border-box; max-width: 32rem; margin: 0 auto; padding: 14vh 1.5rem 2rem; }
svg { display: block; width: 4rem; height: 4rem; }
h1 { margin: 1.25rem 0 1.5rem; font-size: 1.4rem; line-height: 1.35; font-weight: 600;
  text-wrap: balance; }
button { display: block; box-sizing: border-box; width: 100%; margin: .75rem 0; padding: .7rem 1rem;
  text-align: left; font: inherit; color: inherit; background: none; border: 1px solid var(--line);
  border-radius: .5rem; cursor: pointer; overflow-wrap: anywhere; }
button:hover, button:focus-visible { border-color: var(--quill); outline: 2px solid var(--quill); }
small { display: block; opacity: .75; }
</style></head><body><main>
)";

// The program's icon.
constexpr const char* kQuill = R"(<svg viewBox="0 0 64 64" aria-hidden="true">
<g fill="#fff" stroke="#fff" stroke-linejoin="round">
<rect x="6" y="24" width="34" height="34" rx="4" stroke-width="12"/>
<path stroke-width="5" d="M26 39C18.5 26 34 8 61.5 2.5C61 9 59.5 14 57 18.5L49.5 19.5L54 23C51.5 27 48.5 30 45 32.5L37.5 32L41 35.5C36.5 38.5 31 39.8 26 39Z"/>
</g>
<rect x="6" y="24" width="34" height="34" rx="4" fill="#fafafb" stroke="#001a35" stroke-width="6"/>
<path fill="#80d080" stroke="#fff" stroke-width="5" stroke-linejoin="round" paint-order="stroke" d="M26 39C18.5 26 34 8 61.5 2.5C61 9 59.5 14 57 18.5L49.5 19.5L54 23C51.5 27 48.5 30 45 32.5L37.5 32L41 35.5C36.5 38.5 31 39.8 26 39Z"/>
<path fill="#00a000" d="M26 39C33 27 44 14 61.5 2.5C61 9 59.5 14 57 18.5L49.5 19.5L54 23C51.5 27 48.5 30 45 32.5L37.5 32L41 35.5C36.5 38.5 31 39.8 26 39Z"/>
<path fill="#001a35" d="M13.5 53.5L16.3 45.5C24.5 33 36.5 19.5 54 8.5C39.5 22 28.5 35.5 20.8 48.3Z"/>
</svg>
)";

std::string Page(const std::string& sentence, const std::string& body) {
  return std::string(kHead) + kQuill + "<h1>" + sentence + "</h1>\n" + body +
         "</main></body></html>\n";
}

std::string ButtonOf(const PublisherAccount& account) {
  const std::string id = account.Name.substr(account.Name.find('/') + 1);
  const std::string words = account.Title.empty()
                                ? HtmlText(id)
                                : HtmlText(account.Title) + "<small>" + HtmlText(id) + "</small>";
  return "<button name=\"account\" value=\"" + HtmlText(account.Name) + "\">" + words +
         "</button>\n";
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

std::string SentencePage(const std::string& sentence) {
  return Page(sentence, "");
}

std::string ChoicePage(const std::string& state, std::span<const PublisherAccount> accounts) {
  std::string body = "<form action=\"/\"><input type=\"hidden\" name=\"state\" value=\"" +
                     HtmlText(state) + "\">\n";
  for (const PublisherAccount& account : accounts) body += ButtonOf(account);
  return Page("Choose the account whose reports Quillbox shall read.", body + "</form>\n");
}

}  // namespace quillbox

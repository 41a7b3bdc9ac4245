#include "service_options.h"

#include <algorithm>
#include <charconv>
#include <functional>

namespace quillbox {
namespace {

using std::chrono::seconds;

constexpr std::size_t kOne = 1;
constexpr std::size_t kMany = 10'000;
constexpr int kSkew = 400 * 86'400;

// Thrown by what reads an option's value; the option's name is added to it.
struct BadValue {
  std::string Wanted;
};

using Setter = std::function<void(ServiceOptions&, const std::string&)>;

template <typename Number>
Number ParseNumber(const std::string& text, Number least, Number most) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || number < least || number > most) {
    throw BadValue{"a fitting number"};
  }
  return number;
}

template <typename Choice>
Choice OneOf(const std::string& text, const std::map<std::string, Choice>& choices) {
  const auto choice = choices.find(text);
  if (choice != choices.end()) return choice->second;
  std::string wanted = "one of";
  for (const auto& [name, value] : choices) wanted += " " + name;
  throw BadValue{wanted};
}

void AddAccount(ServiceOptions& options, const std::string& text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos) throw BadValue{"EMAIL:PASSWORD"};
  options.Accounts[text.substr(0, colon)] = text.substr(colon + 1);
}

void AddFault(ServiceOptions& options, const std::string& text) {
  const auto rule = ParseFaultRule(text);
  if (!rule) throw BadValue{"a failure that it knows"};
  options.Faults.push_back(*rule);
}

void SetVersionText(ServiceOptions& options, const std::string& text) {
  if (text.empty()) throw BadValue{"a text"};
  options.VersionText = text;
}

void SetFolder(ServiceOptions& options, const std::string& folder) {
  options.AuthorityFile = folder + "/authority.pem";
  options.PortFile = folder + "/port";
}

void SetClient(ServiceOptions& options, const std::string& text) {
  const std::size_t colon = std::min(text.find(':'), text.size());
  options.Api.ClientId = text.substr(0, colon);
  options.Api.ClientSecret = text.substr(std::min(colon + 1, text.size()));
}

void SetConsent(ServiceOptions& options, const std::string& text) {
  options.Api.Asks = OneOf<Consent>(
      text, {{"page", Consent::kPage}, {"auto", Consent::kAuto}, {"deny", Consent::kDeny}});
}

void SetRefresh(ServiceOptions& options, const std::string& text) {
  options.Api.Refreshes = OneOf<OnRefresh>(text, {{"keep", OnRefresh::kKeepGrant},
                                                  {"rotate", OnRefresh::kNewGrant},
                                                  {"rotate-once", OnRefresh::kNewGrantOnce}});
}

void SetRevoke(ServiceOptions& options, const std::string& text) {
  options.Api.Revokes =
      OneOf<OnRevoke>(text, {{"grant", OnRevoke::kGrant}, {"person", OnRevoke::kPerson}});
}

void AddGrant(ServiceOptions& options, const std::string& text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos) throw BadValue{"EMAIL:TOKEN"};
  options.Api.Grants[text.substr(colon + 1)] = text.substr(0, colon);
}

void SetListen(ServiceOptions& options, const std::string& text) {
  if (text != "127.0.0.1" && text != "::1") throw BadValue{"127.0.0.1 or ::1"};
  options.Listen = text;
}

const std::map<std::string, Setter>& Setters() {
  static const std::map<std::string, Setter> setters = {
      {"--port", [](auto& o, auto& text) { o.Port = ParseNumber(text, 0, 65535); }},
      {"--authority", [](auto& o, auto& text) { o.AuthorityFile = text; }},
      {"--folder", SetFolder},
      {"--account", AddAccount},
      {"--fail", AddFault},
      {"--seed",
       [](auto& o, auto& text) { o.Seed = ParseNumber<std::uint64_t>(text, 0, UINT64_MAX); }},
      {"--speed", [](auto& o, auto& text) { o.Speed = ParseNumber(text, 1.0, 1e6); }},
      {"--version-text", SetVersionText},
      {"--client", SetClient},
      {"--consent", SetConsent},
      {"--grant", AddGrant},
      {"--token-life",
       [](auto& o, auto& text) { o.Api.TokenLife = seconds(ParseNumber(text, 0, 1 << 30)); }},
      {"--publishers",
       [](auto& o, auto& text) { o.Api.PublishersPerEmail = ParseNumber(text, kOne, kMany); }},
      {"--ready-publishers",
       [](auto& o, auto& text) { o.Api.ReadyPublishers = ParseNumber(text, kOne, kMany); }},
      {"--page-limit",
       [](auto& o, auto& text) { o.Api.PageLimit = ParseNumber(text, kOne, kMany); }},
      {"--row-limit",
       [](auto& o, auto& text) { o.Api.RowLimit = ParseNumber(text, kOne, kMostRows); }},
      {"--refresh", SetRefresh},
      {"--revoke", SetRevoke},
      {"--history",
       [](auto& o, auto& text) {
         o.Api.History = std::chrono::days(ParseNumber(text, 1, kMostDays));
       }},
      {"--currency", [](auto& o, auto& text) { o.Api.Currency = text; }},
      {"--warning", [](auto& o, auto& text) { o.Api.Warnings.push_back(text); }},
      {"--clock-skew",
       [](auto& o, auto& text) { o.ClockSkew = seconds(ParseNumber(text, -kSkew, kSkew)); }},
      {"--listen", SetListen}};
  return setters;
}

}  // namespace

ServiceOptions ParseServiceOptions(std::span<const char* const> arguments) {
  ServiceOptions options;
  for (std::size_t i = 0; i < arguments.size(); i += 2) {
    const std::string name = arguments[i];
    const auto setter = Setters().find(name);
    if (setter == Setters().end()) throw BadCommandLine("unknown option \"" + name + "\"");
    if (i + 1 == arguments.size()) throw BadCommandLine(name + " needs a value");
    const std::string value = arguments[i + 1];
    try {
      setter->second(options, value);
    } catch (const BadValue& bad) {
      throw BadCommandLine(name + " needs " + bad.Wanted + ", not \"" + value + "\"");
    }
  }
  return options;
}

}  // namespace quillbox

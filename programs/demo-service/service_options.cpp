#include "service_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <map>
#include <sstream>

namespace quillbox {
namespace {

using std::chrono::seconds;

constexpr std::size_t kOne = 1;
constexpr std::size_t kMany = 10'000;
constexpr int kSkew = 400 * 86'400;

// Thrown by what reads an option's value: what the option needs instead.
struct BadValue {
  std::string Needed;
};

template <typename Number>
Number ParseNumber(const std::string& text, Number least, Number most) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || number < least || number > most) {
    std::ostringstream needed;
    needed << "a number from " << least << " to " << most;
    throw BadValue{needed.str()};
  }
  return number;
}

template <typename Choice>
Choice OneOf(const std::string& text, const std::map<std::string, Choice>& choices) {
  const auto choice = choices.find(text);
  if (choice != choices.end()) return choice->second;
  std::string names;
  for (const auto& [name, value] : choices) names += (names.empty() ? "" : " or ") + name;
  throw BadValue{names};
}

void AddAccount(ServiceOptions& options, const std::string& text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos) throw BadValue{"EMAIL:PASSWORD"};
  options.Accounts[text.substr(0, colon)] = text.substr(colon + 1);
}

void AddFault(ServiceOptions& options, const std::string& text) {
  const auto rule = ParseFaultRule(text);
  if (!rule) throw BadValue{"a failure that the service knows"};
  options.Faults.push_back(*rule);
}

void SetVersionText(ServiceOptions& options, const std::string& text) {
  if (text.empty()) throw BadValue{"a text that isn't empty"};
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

struct ServiceOption {
  const char* Name;
  const char* Value;                                               // its form, for people
  void (*Take)(ServiceOptions& options, const std::string& text);  // throws BadValue
  const char* Meaning;
};

constexpr ServiceOption kServiceOptions[] = {
    {"--port", "N", [](auto& o, auto& text) { o.Port = ParseNumber(text, 0, 65535); },
     "The port; 0 takes a free one"},
    {"--authority", "FILE", [](auto& o, auto& text) { o.AuthorityFile = text; },
     "Where the authority's certificate is written (PEM)"},
    {"--folder", "FOLDER", SetFolder, "Gets authority.pem, and the port in a file \"port\""},
    {"--account", "EMAIL:PASSWORD", AddAccount, "An account that may sign in; may be repeated"},
    {"--fail", "RULE", AddFault, "A failure from the start; may be repeated"},
    {"--seed", "N",
     [](auto& o, auto& text) { o.Seed = ParseNumber<std::uint64_t>(text, 0, UINT64_MAX); },
     "Other figures"},
    {"--speed", "X", [](auto& o, auto& text) { o.Speed = ParseNumber(text, 1.0, 1e6); },
     "How many times faster the figures of today grow"},
    {"--version-text", "TEXT", SetVersionText, "What /versionqb.txt says"},
    {"--client", "ID:SECRET", SetClient, "The program that may ask for access"},
    {"--consent", "page|auto|deny", SetConsent, "How the person answers who is asked for access"},
    {"--grant", "EMAIL:TOKEN", AddGrant, "A grant from the start; may be repeated"},
    {"--token-life", "SECONDS",
     [](auto& o, auto& text) { o.Api.TokenLife = seconds(ParseNumber(text, 0, 1 << 30)); },
     "How long an access token holds"},
    {"--publishers", "N",
     [](auto& o, auto& text) { o.Api.PublishersPerEmail = ParseNumber(text, kOne, kMany); },
     "Publisher accounts of each e-mail address"},
    {"--ready-publishers", "N",
     [](auto& o, auto& text) { o.Api.ReadyPublishers = ParseNumber(text, kOne, kMany); },
     "How many of them, from the last one back, have figures"},
    {"--page-limit", "N",
     [](auto& o, auto& text) { o.Api.PageLimit = ParseNumber(text, kOne, kMany); },
     "The most accounts in one page of the list"},
    {"--row-limit", "N",
     [](auto& o, auto& text) { o.Api.RowLimit = ParseNumber(text, kOne, kMostRows); },
     "The most rows in one report"},
    {"--refresh", "keep|rotate|rotate-once", SetRefresh, "Whether a refresh replaces the grant"},
    {"--revoke", "grant|person", SetRevoke, "What goes with a grant that is given back"},
    {"--history", "DAYS",
     [](auto& o, auto& text) {
       o.Api.History = std::chrono::days(ParseNumber(text, 1, kMostDays));
     },
     "How far back reports may begin"},
    {"--currency", "CODE", [](auto& o, auto& text) { o.Api.Currency = text; },
     "The currency of the accounts"},
    {"--warning", "TEXT", [](auto& o, auto& text) { o.Api.Warnings.push_back(text); },
     "A warning in every report; may be repeated"},
    {"--clock-skew", "SECONDS",
     [](auto& o, auto& text) { o.ClockSkew = seconds(ParseNumber(text, -kSkew, kSkew)); },
     "How far the service's clock is ahead"},
    {"--listen", "ADDRESS", SetListen, "127.0.0.1 or ::1"},
};

void Take(const ServiceOption& option, ServiceOptions& options, const std::string& text) {
  try {
    option.Take(options, text);
  } catch (const BadValue& bad) {
    throw CLI::ValidationError(std::string(option.Name) + " needs " + bad.Needed + ", not \"" +
                               text + "\"");
  }
}

}  // namespace

void AddServiceOptions(CLI::App& program, ServiceOptions& options) {
  for (const ServiceOption& option : kServiceOptions) {
    const auto take = [&option, &options](const std::string& text) { Take(option, options, text); };
    program.add_option_function<std::string>(option.Name, take, option.Meaning)
        ->type_name(option.Value)
        ->trigger_on_parse();  // in the order of the command line
  }
}

}  // namespace quillbox

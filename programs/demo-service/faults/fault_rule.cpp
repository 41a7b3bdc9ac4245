#include "faults/fault_rule.h"

#include <charconv>
#include <utility>

namespace quillbox {
namespace {

constexpr std::pair<std::string_view, Fault> kModes[] = {{"none", Fault::kNone},
                                                         {"refuse", Fault::kRefuse},
                                                         {"stall", Fault::kStall},
                                                         {"drip", Fault::kDrip},
                                                         {"cut", Fault::kCut},
                                                         {"downgrade", Fault::kDowngrade},
                                                         {"wrong-name", Fault::kWrongName},
                                                         {"untrusted", Fault::kUntrusted}};

std::optional<int> ParseStatus(std::string_view mode) {
  if (mode == "error") return 500;
  int status = 0;
  const auto [end, error] = std::from_chars(mode.data(), mode.data() + mode.size(), status);
  const bool whole = error == std::errc() && end == mode.data() + mode.size();
  return whole && status >= 400 && status <= 599 ? std::optional(status) : std::nullopt;
}

bool ConcernsConnections(Fault fault) {
  return fault == Fault::kWrongName || fault == Fault::kUntrusted;
}

}  // namespace

bool FaultRule::Applies(std::string_view path, std::string_view account) const {
  if (Target.empty()) return true;
  return Target.front() == '/' ? path.starts_with(Target) : account == Target;
}

std::optional<FaultRule> ParseFaultRule(std::string_view text) {
  const std::size_t colon = text.find(':');
  const std::string_view mode = text.substr(0, colon);
  const std::string target(colon == std::string_view::npos ? "" : text.substr(colon + 1));
  if (const auto status = ParseStatus(mode)) return FaultRule{Fault::kStatus, *status, target};
  for (const auto& [name, fault] : kModes) {
    if (name != mode || (ConcernsConnections(fault) && !target.empty())) continue;
    return FaultRule{fault, 0, target};
  }
  return std::nullopt;
}

}  // namespace quillbox

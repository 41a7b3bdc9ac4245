#include "faults.h"

#include <algorithm>
#include <charconv>
#include <iterator>
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

std::optional<int> ParseNumber(std::string_view text, int least, int most) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  const bool fits = error == std::errc() && stop == end && number >= least && number <= most;
  return fits ? std::optional(number) : std::nullopt;
}

std::optional<FaultRule> ParseMode(std::string_view mode) {
  if (mode == "error") return FaultRule{Fault::kStatus, 500, "", 0};
  if (const auto status = ParseNumber(mode, 400, 599)) {
    return FaultRule{Fault::kStatus, *status, "", 0};
  }
  for (const auto& [name, fault] : kModes) {
    if (name == mode) return FaultRule{fault, 0, "", 0};
  }
  return std::nullopt;
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
  const std::size_t star = mode.find('*');
  auto rule = ParseMode(mode.substr(0, star));
  if (!rule) return std::nullopt;
  if (colon != std::string_view::npos) rule->Target = text.substr(colon + 1);
  if (star != std::string_view::npos) {
    const auto count = ParseNumber(mode.substr(star + 1), 1, 999);
    if (!count) return std::nullopt;
    rule->Count = *count;
  }
  const bool restricted = rule->Count != 0 || !rule->Target.empty();
  return restricted && ConcernsConnections(rule->Kind) ? std::nullopt : rule;
}

void FaultSwitch::Set(const FaultRule& rule) {
  const std::lock_guard lock(mutex_);
  if (rule.Kind == Fault::kNone) {
    rules_.clear();
  } else {
    rules_.push_back(rule);
  }
  ++changes_;
  changed_.notify_all();
}

FaultRule FaultSwitch::For(std::string_view path, std::string_view account) {
  const std::lock_guard lock(mutex_);
  const auto found = std::find_if(rules_.rbegin(), rules_.rend(), [&](const FaultRule& rule) {
    return !ConcernsConnections(rule.Kind) && rule.Applies(path, account);
  });
  if (found == rules_.rend()) return {};
  const FaultRule rule = *found;
  if (found->Count > 0 && --found->Count == 0) rules_.erase(std::next(found).base());
  return rule;
}

Fault FaultSwitch::ForConnections() const {
  const std::lock_guard lock(mutex_);
  const auto found = std::find_if(rules_.begin(), rules_.end(), [](const FaultRule& rule) {
    return ConcernsConnections(rule.Kind);
  });
  return found == rules_.end() ? Fault::kNone : found->Kind;
}

void FaultSwitch::Stop() {
  const std::lock_guard lock(mutex_);
  stopped_ = true;
  changed_.notify_all();
}

bool FaultSwitch::Hold(std::chrono::milliseconds time) {
  std::unique_lock lock(mutex_);
  const unsigned before = changes_;
  return !changed_.wait_for(lock, time, [&] { return stopped_ || changes_ != before; });
}

}  // namespace quillbox

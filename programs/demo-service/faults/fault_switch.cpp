#include "faults/fault_switch.h"

#include <algorithm>
#include <iterator>

namespace quillbox {
namespace {

bool ConcernsConnections(const FaultRule& rule) {
  return rule.Kind == Fault::kWrongName || rule.Kind == Fault::kUntrusted;
}

}  // namespace

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
    return !ConcernsConnections(rule) && rule.Applies(path, account);
  });
  if (found == rules_.rend()) return {};
  const FaultRule rule = *found;
  if (found->Count > 0 && --found->Count == 0) rules_.erase(std::next(found).base());
  return rule;
}

Fault FaultSwitch::ForConnections() const {
  const std::lock_guard lock(mutex_);
  const auto found = std::find_if(rules_.begin(), rules_.end(), ConcernsConnections);
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

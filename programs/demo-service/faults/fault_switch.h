// The faults that are switched on now. All functions may be called from any thread.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string_view>
#include <vector>

#include "faults/fault_rule.h"

namespace quillbox {

class FaultSwitch {
 public:
  // A rule of kNone takes all others away. Of several rules that apply the one set last holds.
  void Set(const FaultRule& rule);

  // The rule for a request; one of kNone when none applies. A rule with a count counts it.
  FaultRule For(std::string_view path, std::string_view account);

  // kWrongName, kUntrusted or kNone.
  Fault ForConnections() const;

  // Wakes all who are held, and holds nobody any more.
  void Stop();

  // Waits for `time`, or until the switch is set or stopped: false then.
  bool Hold(std::chrono::milliseconds time);

 private:
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<FaultRule> rules_;
  unsigned changes_ = 0;
  bool stopped_ = false;
};

}  // namespace quillbox

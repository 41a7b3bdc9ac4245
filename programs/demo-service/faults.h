// What goes wrong on purpose: the rules, and those that are switched on now.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

// What shall go wrong, and for whom.
enum class Fault {
  kNone,
  kRefuse,     // the sign-in page again, or status 403
  kStatus,     // an error page with a status of one's choice
  kStall,      // no answer at all
  kDrip,       // the right answer, a byte at a time
  kCut,        // the connection breaks in the middle of the answer
  kDowngrade,  // a redirect to http
  kWrongName,  // a certificate for another name
  kUntrusted,  // a certificate of another authority
};

struct FaultRule {
  Fault Kind = Fault::kNone;
  int Status = 0;      // with kStatus
  std::string Target;  // a path's beginning, an account's e-mail address, or empty for all requests
  int Count = 0;       // how many requests it meets before it ends by itself; 0: no end

  bool Applies(std::string_view path, std::string_view account) const;
};

// "MODE" or "MODE:TARGET", the mode one of none, refuse, error (status 500), a number from 400 to
// 599, stall, drip, cut, downgrade, wrong-name and untrusted, with "*N" behind it for a count of 1
// to 999. The last two concern whole connections, so they take neither target nor count. Nothing
// for any other text.
std::optional<FaultRule> ParseFaultRule(std::string_view text);

// The faults that are switched on now. All functions may be called from any thread.
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

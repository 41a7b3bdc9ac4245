// A person who is asked for grants, on simulated time.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/grant_asker.h"
#include "simulated/simulated_time.h"
#include "simulated/simulated_trace.h"

namespace quillbox {

class SimulatedGrants final : public GrantAsker {
 public:
  SimulatedGrants(SimulatedTime& time, SimulatedTrace& trace) : time_(time), trace_(trace) {}

  struct Reply {
    GrantAnswer Answer;
    std::chrono::milliseconds After{0};  // what the person takes for it
  };

  // For the next questions, in order. A question without one gets no answer in five minutes, and
  // that is its problem.
  void Add(Reply reply) { replies_.push_back(std::move(reply)); }

  // Everything that was asked, in order.
  const std::vector<GrantQuestion>& Asked() const { return asked_; }

  struct Forgetting {
    std::string Name;
    std::vector<std::pair<std::string, std::string>> Environment;
  };

  // The grants that were to be forgotten, in order.
  const std::vector<Forgetting>& Forgotten() const { return forgotten_; }

  std::size_t RunningCount() const { return running_.size(); }

  // The process that asked is gone.
  void EndAll();

  std::unique_ptr<GrantAsking> Ask(const GrantQuestion& question,
                                   std::function<void(const GrantAnswer&)> done) override;
  void Forget(const std::string& name,
              const std::vector<std::pair<std::string, std::string>>& environment) override;

 private:
  class Asking;

  Reply TakeReply();
  void GiveUp(std::size_t asking);

  SimulatedTime& time_;
  SimulatedTrace& trace_;
  std::deque<Reply> replies_;
  std::vector<GrantQuestion> asked_;
  std::size_t last_ = 0;
  std::vector<Forgetting> forgotten_;
  std::map<std::size_t, SimulatedTime::EventId> running_;  // each with its answer
};

}  // namespace quillbox

#include "simulated/simulated_grants.h"

#include <utility>

namespace quillbox {

class SimulatedGrants::Asking final : public GrantAsking {
 public:
  Asking(SimulatedGrants& grants, std::size_t number) : grants_(grants), number_(number) {}
  ~Asking() override { grants_.GiveUp(number_); }
  Asking(const Asking&) = delete;
  Asking& operator=(const Asking&) = delete;

 private:
  SimulatedGrants& grants_;
  std::size_t number_;
};

SimulatedGrants::Reply SimulatedGrants::TakeReply() {
  if (replies_.empty()) return {{"", "No answer came in five minutes."}, std::chrono::minutes(5)};
  Reply reply = std::move(replies_.front());
  replies_.pop_front();
  return reply;
}

std::unique_ptr<GrantAsking> SimulatedGrants::Ask(const GrantQuestion& question,
                                                  std::function<void(const GrantAnswer&)> done) {
  trace_.Add("grant", "asked for");
  trace_.Keep(asked_, question);
  const std::size_t number = ++last_;
  const Reply reply = TakeReply();
  running_[number] = time_.After(reply.After, [this, number, answer = reply.Answer, done] {
    running_.erase(number);
    trace_.Add("grant", answer.Problem.empty() ? "made" : "none: " + answer.Problem);
    done(answer);
  });
  return std::make_unique<Asking>(*this, number);
}

void SimulatedGrants::GiveUp(std::size_t asking) {
  const auto running = running_.find(asking);
  if (running == running_.end()) return;
  time_.Cancel(running->second);
  running_.erase(running);
  trace_.Add("grant", "given up");
}

void SimulatedGrants::Forget(const std::string& name,
                             const std::vector<std::pair<std::string, std::string>>& environment) {
  trace_.Add("grant", "forget " + name);
  trace_.Keep(forgotten_, {name, environment});
}

void SimulatedGrants::EndAll() {
  for (const auto& [asking, answer] : running_) time_.Cancel(answer);
  running_.clear();
}

}  // namespace quillbox

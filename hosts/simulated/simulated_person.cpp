#include "simulated/simulated_person.h"

#include <algorithm>
#include <utility>

namespace quillbox {
namespace {

const char* NameOf(BoxAnswer answer) {
  switch (answer) {
    case BoxAnswer::kOk:
      return "OK";
    case BoxAnswer::kYes:
      return "Yes";
    case BoxAnswer::kNo:
      return "No";
  }
  return "";
}

// A box can only be answered with a button that it has.
BoxAnswer Fitting(BoxAnswer wanted, BoxButtons buttons) {
  if (buttons == BoxButtons::kOk) return BoxAnswer::kOk;
  return wanted == BoxAnswer::kYes ? BoxAnswer::kYes : BoxAnswer::kNo;
}

// The process may end while the box is there.
class Standing {
 public:
  explicit Standing(int& boxes) : boxes_(boxes) { ++boxes_; }
  ~Standing() { --boxes_; }
  Standing(const Standing&) = delete;
  Standing& operator=(const Standing&) = delete;

 private:
  int& boxes_;
};

}  // namespace

BoxAnswer SimulatedBoxes::Show(const Message& message) {
  trace_.Keep(shown_, message);
  trace_.Add("box", message.Text);
  const BoxReply reply = TakeReply(message);
  const Standing standing(open_);
  if (reply.WhileOpen) reply.WhileOpen();
  time_.RunUntil(time_.Now() + reply.OpenFor);
  const BoxAnswer answer = Fitting(reply.Answer, message.Buttons);
  trace_.Add("answer", NameOf(answer));
  return answer;
}

BoxReply SimulatedBoxes::TakeReply(const Message& message) {
  const auto fits = [&](const BoxReply& reply) {
    return message.Text.find(reply.Part) != std::string::npos;
  };
  const auto reply = std::ranges::find_if(replies_, fits);
  if (reply == replies_.end()) return {};
  BoxReply taken = std::move(*reply);
  replies_.erase(reply);
  return taken;
}

std::optional<std::string> SimulatedChooser::Choose(const FileQuestion& question) {
  lastQuestion_ = question;
  std::optional<std::string> choice;
  if (!choices_.empty()) {
    choice = std::move(choices_.front());
    choices_.pop_front();
  }
  trace_.Add("choose", question.Title + ": " + choice.value_or("nothing"));
  return choice;
}

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

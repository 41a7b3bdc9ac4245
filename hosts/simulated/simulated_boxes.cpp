// Message boxes that answer themselves, as scripted.
#include "simulated/simulated_boxes.h"

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

}  // namespace quillbox

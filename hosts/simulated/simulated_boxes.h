// Message boxes that answer themselves, as scripted.
#pragma once

#include <chrono>
#include <functional>
#include <list>
#include <string>
#include <vector>

#include "platform/message_boxes.h"
#include "simulated/simulated_trace.h"

namespace quillbox {

struct BoxReply {
  std::string Part{};  // of the text that it answers; empty for any text
  BoxAnswer Answer = BoxAnswer::kOk;
  std::chrono::milliseconds OpenFor{0};  // events go on meanwhile
  std::function<void()> WhileOpen{};     // done as soon as the box stands
};

class SimulatedBoxes final : public MessageBoxes {
 public:
  // Both must outlive the boxes.
  SimulatedBoxes(SimulatedTime& time, SimulatedTrace& trace) : time_(time), trace_(trace) {}

  // Serves one box, the next that it fits; of several the one that was added first. A box that none
  // fits is answered at once, with No or OK.
  void Add(BoxReply reply) { replies_.push_back(std::move(reply)); }

  const std::vector<Message>& Shown() const { return shown_; }

  // Whether a box stands in front of the program's forms.
  bool Open() const { return open_ > 0; }

  // MessageBoxes
  BoxAnswer Show(const Message& message) override;

 private:
  BoxReply TakeReply(const Message& message);

  SimulatedTime& time_;
  SimulatedTrace& trace_;
  std::list<BoxReply> replies_;
  std::vector<Message> shown_;
  int open_ = 0;  // one may stand in front of another
};

}  // namespace quillbox

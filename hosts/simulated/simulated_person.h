// What a person is asked outside of the forms: message boxes, files, grants. The answers are
// scripted.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <list>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/agents.h"
#include "platform/forms.h"
#include "simulated/simulated_time.h"
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

// A person who chooses files.
class SimulatedChooser final : public FileChooser {
 public:
  explicit SimulatedChooser(SimulatedTrace& trace) : trace_(trace) {}

  // What the person chooses the next times, in order, nothing being Cancel; afterwards always
  // Cancel.
  void Add(std::optional<std::string> path) { choices_.push_back(std::move(path)); }

  const FileQuestion& LastQuestion() const { return lastQuestion_; }

  std::optional<std::string> Choose(const FileQuestion& question) override;

 private:
  SimulatedTrace& trace_;
  std::deque<std::optional<std::string>> choices_;
  FileQuestion lastQuestion_;
};

// A person who is asked for grants, on simulated time.
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

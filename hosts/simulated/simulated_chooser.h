// A person who chooses files.
#pragma once

#include <deque>
#include <functional>

#include "platform/file_chooser.h"
#include "simulated/simulated_trace.h"

namespace quillbox {

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

}  // namespace quillbox

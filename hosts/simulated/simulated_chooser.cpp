#include "simulated/simulated_chooser.h"

namespace quillbox {

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

}  // namespace quillbox

#include "windows/windows_agents.h"

#include <algorithm>
#include <chrono>
#include <string_view>

#include "platform/timing.h"
#include "text/code_page.h"
#include "text/grant_name.h"
#include "windows_base/started_program.h"
#include "windows_base/wide_text.h"

namespace quillbox {

WindowsAgents::WindowsAgents(std::string program) : program_(std::move(program)) {}
WindowsAgents::~WindowsAgents() = default;

AgentId WindowsAgents::Start(const AgentStart& start) {
  std::erase_if(running_, [](const auto& agent) { return !agent.second->Running(); });
  running_[++last_] = std::make_unique<StartedProgram>(ProgramStart{
      .Program = program_, .Arguments = {start.Text}, .Environment = start.Environment});
  return last_;
}

bool WindowsAgents::Running(AgentId agent) {
  const auto found = running_.find(agent);
  if (found == running_.end()) return false;
  if (found->second->Running()) return true;
  running_.erase(found);
  return false;
}

void WindowsAgents::End(AgentId agent) {
  running_.erase(agent);
}

void WindowsAgents::EndAll() {
  running_.clear();
}

namespace {

using namespace std::chrono_literals;

constexpr char kNoProgram[] =
    "The program \"dl\", which asks for access, is missing or has broken down.";
constexpr auto kBetweenLooks = 200ms;  // a person sees no difference

// What has been written into the pipe so far; a few lines at most, which it has room for.
std::string WrittenInto(const Pipe& pipe) {
  DWORD waiting = 0, count = 0;
  ::PeekNamedPipe(pipe.Ours.get(), nullptr, 0, nullptr, &waiting, nullptr);
  std::string text(waiting, '\0');
  if (waiting > 0 && !::ReadFile(pipe.Ours.get(), text.data(), waiting, &count, nullptr)) count = 0;
  text.resize(count);
  return text;
}

constexpr std::string_view kBlanks = " \t\r\n";

std::string WithoutBlanksAround(const std::string& text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

// The last paragraph says why; what stands before was of use while it ran. One line.
std::string Reason(std::string words) {
  std::erase(words, '\r');
  words = WithoutBlanksAround(words);
  const std::size_t paragraph = words.rfind("\n\n");
  if (paragraph != std::string::npos) words.erase(0, paragraph + 2);
  std::replace(words.begin(), words.end(), '\n', ' ');
  return CodePageOf(WideOfPath(words));
}

class Asking final : public GrantAsking {
 public:
  Asking(const std::string& program, Timers& timers, const GrantQuestion& question,
         std::function<void(const GrantAnswer&)> done)
      : program_(ProgramStart{.Program = program,
                              .Arguments = {"authorize", question.Email},
                              .Environment = question.Environment,
                              .ItsOwnOutliveIt = true,
                              .Output = output_.Programs.get(),
                              .Errors = errors_.Programs.get()}),
        done_(std::move(done)),
        look_(timers.NewTimer(kBetweenLooks, [this] { Look(); })) {
    look_->SetEnabled(true);
  }

 private:
  void Look() {
    if (program_.Running()) return;
    look_->SetEnabled(false);
    const auto done = std::move(done_);  // it may destroy this
    done(Answer());
  }

  GrantAnswer Answer() const {
    const std::string name = WithoutBlanksAround(WrittenInto(output_));
    if (program_.ExitCode() == 0 && IsGrantName(name)) return {name, ""};
    const std::string reason = Reason(WrittenInto(errors_));
    return {"", reason.empty() ? kNoProgram : reason};
  }

  Pipe output_{false}, errors_{false};
  StartedProgram program_;
  std::function<void(const GrantAnswer&)> done_;
  std::unique_ptr<Timer> look_;
};

}  // namespace

std::unique_ptr<GrantAsking> WindowsGrantAsker::Ask(const GrantQuestion& question,
                                                    std::function<void(const GrantAnswer&)> done) {
  return std::make_unique<Asking>(program_, timers_, question, std::move(done));
}

// A pipe takes the name whether it is read or not.
void WindowsGrantAsker::Forget(
    const std::string& name, const std::vector<std::pair<std::string, std::string>>& environment) {
  const Pipe input(true);
  if (!input.Ours) return;
  const std::string line = name + "\n";
  DWORD written = 0;
  ::WriteFile(input.Ours.get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
  StartAlone({.Program = program_,
              .Arguments = {"revoke"},
              .Environment = environment,
              .Input = input.Programs.get()});
}

}  // namespace quillbox

// Runs of the fetch program: those that fetch, and those that get access from a person or give it
// back.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillbox {

using AgentId = int;

struct AgentStart {
  std::string Text;  // code page; the agent's one argument; holds secrets
  // Added to the agent's environment, in the code page; an empty value takes the variable out.
  std::vector<std::pair<std::string, std::string>> Environment;
};

// The host ends every agent that still runs when the program ends.
class AgentRunner {
 public:
  virtual ~AgentRunner() = default;

  // Starts the fetch program without a shell and returns at once. A start that fails shows in
  // Running being false. The text is never logged or kept.
  virtual AgentId Start(const AgentStart& start) = 0;

  // False when it has ended, never started, or `agent` is unknown.
  virtual bool Running(AgentId agent) = 0;

  // Ends it, so that afterwards it writes no file any more. Ending what doesn't run is a success.
  virtual void End(AgentId agent) = 0;
};

struct GrantQuestion {
  std::string Email;  // code page; may be empty; whose access is asked for
  // As of AgentStart.
  std::vector<std::pair<std::string, std::string>> Environment;
};

// Either the grant's name, which stands in for a password, or words for the person why there is
// none (code page, one line); the other is empty.
struct GrantAnswer {
  std::string Name;
  std::string Problem;
};

// Destroying it gives up: what runs is ended, and nobody is told.
class GrantAsking {
 public:
  virtual ~GrantAsking() = default;
};

class GrantAsker {
 public:
  virtual ~GrantAsker() = default;

  // Starts and returns at once. The person answers in their browser, in some minutes. `done` is
  // called once, from the event pump, and may destroy the asking. The host ends every asking that
  // still goes on when the program ends.
  virtual std::unique_ptr<GrantAsking> Ask(const GrantQuestion& question,
                                           std::function<void(const GrantAnswer&)> done) = 0;

  // A grant that nobody needs any more: its file goes, and the access is taken away at the service
  // if that can be reached. Starts and returns at once; nobody is told how it went. What was
  // started goes on when the program ends, also if it is asked for as the last thing; it ends by
  // itself within the limits of the fetch program. `environment`: as of GrantQuestion.
  virtual void Forget(const std::string& name,
                      const std::vector<std::pair<std::string, std::string>>& environment) = 0;
};

}  // namespace quillbox

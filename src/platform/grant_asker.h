// Asking a person to grant access to their reports, and giving it back.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillbox {

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

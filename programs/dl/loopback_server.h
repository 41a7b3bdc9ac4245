// The small server to which the browser brings the answer of the consent page.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "oauth/redirect_request.h"

namespace quillbox {

// On a free port of 127.0.0.1, for one answer.
class LoopbackServer {
 public:
  LoopbackServer();
  ~LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  // False when no port was to be had.
  bool Listens() const { return port_ != 0; }

  // "http://127.0.0.1:PORT/"
  std::string Address() const;

  // The answer that carries `state`; all other requests are sent away. Nothing once the time is up.
  std::optional<ConsentAnswer> Await(const std::string& state, std::chrono::seconds patience);

  // What the browser shows for the answer that Await gave: a sentence in HTML.
  void Show(const std::string& sentence);

 private:
  using Clock = std::chrono::steady_clock;

  struct Visitor {
    int Socket;
    std::string Received;
    Clock::time_point Since;
  };

  void Wait(Clock::time_point end);
  void Admit();
  std::optional<ConsentAnswer> Hear(Visitor& visitor, const std::string& state);

  int listener_ = -1;
  int port_ = 0;
  std::vector<Visitor> visitors_;
  int answered_ = -1;  // the browser that waits for Show
};

}  // namespace quillbox

// The small server to which the browser brings a person's answers.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "oauth/page_request.h"

namespace quillbox {

// On a free port of 127.0.0.1, for one answer after the other.
class LoopbackServer {
 public:
  using Clock = std::chrono::steady_clock;
  using IsWanted = std::function<bool(const QueryFields&)>;

  LoopbackServer();
  ~LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  // False when no port was to be had.
  bool Listens() const { return port_ != 0; }

  // "http://127.0.0.1:PORT/"
  std::string Address() const;

  // The first query of "/" that is wanted; all other requests are sent away with a 404. Nothing
  // once the time is up.
  std::optional<QueryFields> Await(const IsWanted& isWanted, Clock::time_point end);

  // What the browser shows for what Await gave: HTML. To be called before the next Await.
  void Show(const std::string& page);

 private:
  struct Visitor {
    int Socket;
    std::string Received;
    Clock::time_point Since;
  };

  void Wait(Clock::time_point end);
  void Admit();
  std::optional<QueryFields> Hear(Visitor& visitor, const IsWanted& isWanted);

  int listener_ = -1;
  int port_ = 0;
  std::vector<Visitor> visitors_;
  int answered_ = -1;  // the browser that waits for Show
};

}  // namespace quillbox

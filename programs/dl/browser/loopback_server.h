// A server on this machine for the person's own browser, and the browser itself.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "oauth/consent.h"

namespace quillbox {

// On a free port of 127.0.0.1, for one answer after the other. It serves this process's own user.
// What other users of the machine send isn't even read: their connections are reset, and take
// nobody's place.
class LoopbackServer {
 public:
  using Clock = std::chrono::steady_clock;
  using IsWanted = std::function<bool(const QueryFields&)>;

  // Why Listens may be false, for the person.
  static constexpr const char* kNoPort =
      "No free port on 127.0.0.1, or the system doesn't tell whose its visitors are.";

  LoopbackServer();
  ~LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  // False when no port was to be had, or the system doesn't tell who comes.
  bool Listens() const { return listener_ >= 0; }

  // "http://127.0.0.1:PORT/"
  std::string Address() const;

  // Offers a page, of the server's address and `name` (for use in addresses, and not to be
  // guessed), that leads on to `address` byte for byte: to the first who gets it, until `end`.
  // Others learn that it is gone. Gives the page's address.
  std::string Offer(const std::string& name, const std::string& address, Clock::time_point end);

  // True once the page has been got; false when it hasn't been by `end`. Who asks for anything
  // else meanwhile waits for Await.
  bool AwaitOffered(Clock::time_point end);

  // The first query of "/" that is wanted; all other requests, but those for the page, are sent
  // away with a 404. Nothing once the time is up.
  std::optional<QueryFields> Await(const IsWanted& isWanted, Clock::time_point end);

  // What the browser shows for what Await gave: HTML. To be called before the next Await.
  void Show(const std::string& page);

 private:
  struct Visitor {
    int Socket;
    std::string Received;
    Clock::time_point Since;
  };
  struct Page {
    std::string Target;   // "/name"
    std::string Address;  // empty once somebody got it
    Clock::time_point End;
  };

  std::optional<QueryFields> Serve(const IsWanted& isWanted, Clock::time_point end);
  void Wait(Clock::time_point end);
  void Admit();
  std::optional<QueryFields> Hear(Visitor& visitor, const IsWanted& isWanted);
  std::optional<QueryFields> Answer(Visitor& visitor, const IsWanted& isWanted);
  std::string LeadOn();

  int port_ = 0;
  int listener_;
  Page page_;
  std::vector<Visitor> visitors_;
  int answered_ = -1;  // the browser that waits for Show
};

inline constexpr std::chrono::milliseconds kOffered{60'000};  // the page of OpenInBrowser

// Has the desktop open `address` by way of a page of `server`, named `page` (not to be guessed): no
// process's arguments show more than that page, which works once within kOffered, and until `end`
// at most. `fileMask`: the mask for files under which the browser shall run. False when the
// desktop's opener can't be started, or fails within two seconds: it is watched so long and no
// longer, since it may be the browser itself. Returns before that when the browser has been led on.
bool OpenInBrowser(LoopbackServer& server, const std::string& page, const std::string& address,
                   LoopbackServer::Clock::time_point end, unsigned fileMask);

}  // namespace quillbox

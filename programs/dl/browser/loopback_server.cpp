#include "browser/loopback_server.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "oauth/consent.h"
#include "system/opener.h"
#include "system/sockets.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kMostVisitors = 16;
constexpr int kMostAtOnce = 64;  // before those who were let in are heard
constexpr std::size_t kMostBytes = 16 << 10;
constexpr auto kReading = 1s;  // of the next part of a page
constexpr auto kVisit = 10s;   // browsers also connect ahead and say nothing

// `fields`: more lines of the head, each with its end.
std::string Reply(const std::string& status, const std::string& page,
                  const std::string& fields = "") {
  return "HTTP/1.1 " + status + "\r\nContent-Type: text/html; charset=utf-8\r\nContent-Length: " +
         std::to_string(page.size()) +
         "\r\nCache-Control: no-store\r\nReferrer-Policy: no-referrer\r\n"
         "Content-Security-Policy: default-src 'none'; style-src 'unsafe-inline'\r\n"
         "Connection: close\r\n" +
         fields + "\r\n" + page;
}

// A long list of accounts is more than a socket takes at once; who doesn't read gets a part of it.
void SayGoodbye(int socket, const std::string& reply) {
  SendWhole(socket, reply, kReading);
  CloseSocket(socket);
}

using namespace std::chrono_literals;

using Clock = LoopbackServer::Clock;

constexpr auto kWatching = 2000ms;
constexpr auto kLookEvery = 10ms;

bool FailsSoon(const Opener& opener, LoopbackServer& server) {
  for (const auto end = Clock::now() + kWatching; Clock::now() < end;) {
    if (server.AwaitOffered(Clock::now() + kLookEvery)) return false;
    if (const auto failed = opener.Failed()) return *failed;
  }
  return false;
}

}  // namespace

LoopbackServer::LoopbackServer() : listener_(ListenOnLoopback(port_)) {}

LoopbackServer::~LoopbackServer() {
  if (answered_ >= 0) CloseSocket(answered_);
  for (const Visitor& visitor : visitors_) CloseSocket(visitor.Socket);
  if (listener_ >= 0) CloseSocket(listener_);
}

std::string LoopbackServer::Address() const {
  return "http://127.0.0.1:" + std::to_string(port_) + "/";
}

std::string LoopbackServer::Offer(const std::string& name, const std::string& address,
                                  Clock::time_point end) {
  page_ = {"/" + name, address, end};
  return Address() + name;
}

bool LoopbackServer::AwaitOffered(Clock::time_point end) {
  while (!page_.Address.empty() && Clock::now() < end) Serve({}, end);
  return page_.Address.empty();
}

std::optional<QueryFields> LoopbackServer::Await(const IsWanted& isWanted, Clock::time_point end) {
  while (Clock::now() < end) {
    if (auto query = Serve(isWanted, end)) return query;
  }
  return std::nullopt;
}

void LoopbackServer::Show(const std::string& page) {
  if (answered_ >= 0) SayGoodbye(std::exchange(answered_, -1), Reply("200 OK", page));
}

std::optional<QueryFields> LoopbackServer::Serve(const IsWanted& isWanted, Clock::time_point end) {
  std::erase_if(visitors_, [](const Visitor& visitor) { return visitor.Socket < 0; });
  Wait(end);
  Admit();
  for (Visitor& visitor : visitors_) {
    if (auto query = Hear(visitor, isWanted)) return query;
  }
  return std::nullopt;
}

// Until somebody comes or speaks, at most a second: visits have an end too.
void LoopbackServer::Wait(Clock::time_point end) {
  std::vector<int> watched{listener_};
  for (const Visitor& visitor : visitors_) watched.push_back(visitor.Socket);
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
  AwaitReadable(watched, std::clamp(left, std::chrono::milliseconds(1), 1000ms));
}

void LoopbackServer::Admit() {
  for (int count = 0; count < kMostAtOnce; ++count) {
    const int socket = AcceptVisitor(listener_);
    if (socket < 0) return;
    if (!IsPeerOwn(socket)) {
      ResetSocket(socket);
      continue;
    }
    if (visitors_.size() == kMostVisitors) {
      CloseSocket(visitors_.front().Socket);
      visitors_.erase(visitors_.begin());
    }
    visitors_.push_back({socket, "", Clock::now()});
  }
}

std::optional<QueryFields> LoopbackServer::Hear(Visitor& visitor, const IsWanted& isWanted) {
  char piece[4096];
  const int got = Receive(visitor.Socket, piece);
  if (got > 0) visitor.Received.append(piece, static_cast<std::size_t>(got));
  if (IsWholeHead(visitor.Received)) {
    if (auto query = Answer(visitor, isWanted)) return query;
  }
  const bool over =
      got < 0 || visitor.Received.size() > kMostBytes || Clock::now() - visitor.Since > kVisit;
  if (over && visitor.Socket >= 0) CloseSocket(std::exchange(visitor.Socket, -1));
  return std::nullopt;
}

// Sends the visitor away once it is clear that it isn't the one.
std::optional<QueryFields> LoopbackServer::Answer(Visitor& visitor, const IsWanted& isWanted) {
  const auto target = TargetOf(visitor.Received);
  if (target && !page_.Target.empty() && *target == page_.Target) {
    SayGoodbye(std::exchange(visitor.Socket, -1), LeadOn());
    return std::nullopt;
  }
  if (!isWanted) return std::nullopt;
  auto query = ReadPageRequest(visitor.Received);
  if (query && isWanted(*query)) {
    answered_ = std::exchange(visitor.Socket, -1);
    return query;
  }
  SayGoodbye(
      std::exchange(visitor.Socket, -1),
      Reply("404 Not Found", SentencePage("This page is gone: go back to Quillbox to connect.")));
  return std::nullopt;
}

// A redirect, since a page that only names the address would stand in the browser's history.
std::string LoopbackServer::LeadOn() {
  if (page_.Address.empty() || Clock::now() >= page_.End) {
    return Reply("410 Gone",
                 SentencePage("This page leads on only once: start again in Quillbox."));
  }
  return Reply("303 See Other", "",
               "Location: " + std::exchange(page_.Address, std::string()) + "\r\n");
}

bool OpenInBrowser(LoopbackServer& server, const std::string& page, const std::string& address,
                   Clock::time_point end, unsigned fileMask) {
  const Opener opener(server.Offer(page, address, std::min(end, Clock::now() + kOffered)),
                      fileMask);
  return opener.Started() && !FailsSoon(opener, server);
}

}  // namespace quillbox

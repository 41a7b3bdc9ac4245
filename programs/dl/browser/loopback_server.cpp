#include "browser/loopback_server.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>

#include "oauth/browser_pages.h"
#include "system/peer_user.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kMostVisitors = 16;
constexpr int kMostAtOnce = 64;  // before those who were let in are heard
constexpr std::size_t kMostBytes = 16 << 10;
constexpr std::chrono::duration<int, std::milli> kReading = 1s;  // of the next part of a page
constexpr auto kVisit = 10s;  // browsers also connect ahead and say nothing

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
void SendWhole(int socket, std::string_view bytes) {
  pollfd writable{socket, POLLOUT, 0};
  while (!bytes.empty() && ::poll(&writable, 1, kReading.count()) > 0) {
    const ssize_t sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
}

void SayGoodbye(int socket, const std::string& reply) {
  SendWhole(socket, reply);
  ::shutdown(socket, SHUT_WR);
  ::close(socket);
}

// With a reset, so that nothing of it stays, and no number of these takes away all the ports.
void Refuse(int socket) {
  const linger none{1, 0};
  ::setsockopt(socket, SOL_SOCKET, SO_LINGER, &none, sizeof none);
  ::close(socket);
}

}  // namespace

LoopbackServer::LoopbackServer()
    : listener_(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  auto* const general = reinterpret_cast<sockaddr*>(&address);
  socklen_t size = sizeof address;
  listens_ = listener_ >= 0 && ::bind(listener_, general, size) == 0 &&
             ::listen(listener_, SOMAXCONN) == 0 && ::getsockname(listener_, general, &size) == 0 &&
             KnowsUsers(listener_);
  port_ = ntohs(address.sin_port);
}

LoopbackServer::~LoopbackServer() {
  if (answered_ >= 0) ::close(answered_);
  for (const Visitor& visitor : visitors_) ::close(visitor.Socket);
  if (listener_ >= 0) ::close(listener_);
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
  std::vector<pollfd> watched{{listener_, POLLIN, 0}};
  for (const Visitor& visitor : visitors_) watched.push_back({visitor.Socket, POLLIN, 0});
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
  const auto longest = std::clamp(left, std::chrono::milliseconds(1), 1000ms);
  ::poll(watched.data(), watched.size(), static_cast<int>(longest.count()));
}

void LoopbackServer::Admit() {
  for (int count = 0; count < kMostAtOnce; ++count) {
    const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (socket < 0) return;
    if (!IsPeerOwn(socket)) {
      Refuse(socket);
      continue;
    }
    if (visitors_.size() == kMostVisitors) {
      ::close(visitors_.front().Socket);
      visitors_.erase(visitors_.begin());
    }
    visitors_.push_back({socket, "", Clock::now()});
  }
}

std::optional<QueryFields> LoopbackServer::Hear(Visitor& visitor, const IsWanted& isWanted) {
  char piece[4096];
  const ssize_t got = ::recv(visitor.Socket, piece, sizeof piece, 0);
  const bool silent = got < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR);
  if (got > 0) visitor.Received.append(piece, static_cast<std::size_t>(got));
  if (IsWholeHead(visitor.Received)) {
    if (auto query = Answer(visitor, isWanted)) return query;
  }
  const bool over = (got <= 0 && !silent) || visitor.Received.size() > kMostBytes ||
                    Clock::now() - visitor.Since > kVisit;
  if (over && visitor.Socket >= 0) ::close(std::exchange(visitor.Socket, -1));
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

}  // namespace quillbox

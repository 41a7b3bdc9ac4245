// Two ordinary users of one machine. Only root can act as both; others are the person alone.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "dl/support/dl_run.h"

namespace quillbox {

// Nobody has these ids.
inline constexpr uid_t kPerson = 61234, kOther = 61235;

// What the test does while it lives, also the sockets that it makes, is that user's. Throws
// std::runtime_error when it may not be.
class ActingAs {
 public:
  explicit ActingAs(uid_t user) {
    if (::seteuid(user) != 0) throw std::runtime_error("can't act as another user");
  }
  ~ActingAs() { static_cast<void>(::seteuid(0)); }
  ActingAs(const ActingAs&) = delete;
  ActingAs& operator=(const ActingAs&) = delete;
};

inline bool CanActAsOthers() {
  if (::geteuid() != 0) return false;
  const bool can = ::seteuid(kOther) == 0;
  return ::seteuid(0) == 0 && can;
}

// A command line as the person's; `command` and what it needs must be for all to read.
inline std::vector<std::string> AsPerson(std::vector<std::string> command) {
  if (!CanActAsOthers()) return command;
  const std::string id = std::to_string(kPerson);
  std::vector<std::string> all{"/usr/bin/setpriv", "--reuid=" + id, "--regid=" + id,
                               "--clear-groups"};
  all.insert(all.end(), command.begin(), command.end());
  return all;
}

// The folder and all in it.
inline void GiveToPerson(const std::string& folder) {
  if (!CanActAsOthers()) return;
  ::chown(folder.c_str(), kPerson, kPerson) == 0 ? void() : throw std::runtime_error("chown");
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    static_cast<void>(::lchown(entry.path().c_str(), kPerson, kPerson));
  }
}

// Whether `word` stands in the arguments of any process, as any user can read them.
inline bool ArgumentsShow(const std::string& word) {
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    const auto arguments = ReadWhole(entry.path() / "cmdline");
    if (arguments && arguments->find(word) != std::string::npos) return true;
  }
  return false;
}

// All that the server at "http://127.0.0.1:PORT/..." answers to a GET, byte for byte; empty when it
// resets the connection. `throughSix`: by an IPv6 socket, as some browsers make it.
inline std::string RawAnswer(const std::string& page, bool throughSix = false) {
  const std::size_t cut = page.find('/', std::string("http://").size());
  const auto port = static_cast<in_port_t>(std::stoi(page.substr(page.rfind(':', cut) + 1)));
  sockaddr_in four{AF_INET, htons(port), {htonl(INADDR_LOOPBACK)}, {}};
  sockaddr_in6 six{AF_INET6, htons(port), 0, {}, 0};
  ::inet_pton(AF_INET6, "::ffff:127.0.0.1", &six.sin6_addr);
  const int socket = ::socket(throughSix ? AF_INET6 : AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const int failed = throughSix
                         ? ::connect(socket, reinterpret_cast<const sockaddr*>(&six), sizeof six)
                         : ::connect(socket, reinterpret_cast<const sockaddr*>(&four), sizeof four);
  const std::string request = "GET " + page.substr(cut) + " HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n";
  std::string answer;
  if (failed == 0 && ::send(socket, request.data(), request.size(), MSG_NOSIGNAL) > 0) {
    char piece[4096];
    for (ssize_t got; (got = ::recv(socket, piece, sizeof piece, 0)) > 0;) {
      answer.append(piece, static_cast<std::size_t>(got));
    }
  }
  ::close(socket);
  return answer;
}

// Where the answer's redirect leads; "nowhere" without one.
inline std::string PlaceIn(const std::string& answer) {
  const std::string field = "\r\nLocation: ";
  const std::size_t at = answer.find(field);
  if (!answer.starts_with("HTTP/1.1 303 ") || at == std::string::npos) return "nowhere";
  const std::size_t beginning = at + field.size();
  return answer.substr(beginning, answer.find("\r\n", beginning) - beginning);
}

}  // namespace quillbox

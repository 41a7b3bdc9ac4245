// What only Linux can do: telling whose a socket is, and keeping other processes out of our memory.
#include <linux/inet_diag.h>
#include <linux/netlink.h>
#include <linux/sock_diag.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <optional>

#include "system/posix/special.h"
#include "system/sockets.h"

namespace quillbox {
namespace {

struct Question {
  nlmsghdr Head;
  inet_diag_req_v2 Body;
};
struct SocketAnswer {
  nlmsghdr Head;
  inet_diag_msg Body;
  char Further[512];
};

Question QuestionAbout(const sockaddr_in& local, const sockaddr_in& remote) {
  Question question{};
  question.Head.nlmsg_len = sizeof question;
  question.Head.nlmsg_type = SOCK_DIAG_BY_FAMILY;
  question.Head.nlmsg_flags = NLM_F_REQUEST;
  question.Body.sdiag_family = AF_INET;
  question.Body.sdiag_protocol = IPPROTO_TCP;
  question.Body.idiag_states = ~0U;
  inet_diag_sockid& socket = question.Body.id;
  socket.idiag_sport = local.sin_port;
  socket.idiag_dport = remote.sin_port;
  socket.idiag_src[0] = local.sin_addr.s_addr;
  socket.idiag_dst[0] = remote.sin_addr.s_addr;
  socket.idiag_cookie[0] = socket.idiag_cookie[1] = INET_DIAG_NOCOOKIE;
  return question;
}

// Of the one socket of these two ends, also when it is an IPv6 one for an IPv4 address. The kernel
// looks it up without going through a list, and has answered when the question is sent.
std::optional<inet_diag_msg> Ask(const Question& question) {
  const int kernel = ::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_SOCK_DIAG);
  if (kernel < 0) return std::nullopt;
  SocketAnswer answer{};
  const bool sent = ::send(kernel, &question, sizeof question, 0) == sizeof question;
  const ssize_t got = sent ? ::recv(kernel, &answer, sizeof answer, MSG_DONTWAIT) : -1;
  ::close(kernel);
  const bool whole = got >= static_cast<ssize_t>(sizeof answer.Head + sizeof answer.Body) &&
                     answer.Head.nlmsg_type == SOCK_DIAG_BY_FAMILY;
  return whole ? std::optional(answer.Body) : std::nullopt;
}

// A socket that its process has closed lives on as root's for a while: hence the state.
bool IsOwn(const sockaddr_in& local, const sockaddr_in& remote, int state) {
  const auto socket = Ask(QuestionAbout(local, remote));
  return socket && socket->idiag_state == state && socket->idiag_uid == ::geteuid();
}

using GetName = int(int, sockaddr*, socklen_t*);

std::optional<sockaddr_in> EndOf(int socket, GetName& getName) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  const bool known = getName(socket, reinterpret_cast<sockaddr*>(&address), &size) == 0 &&
                     address.sin_family == AF_INET;
  return known ? std::optional(address) : std::nullopt;
}

}  // namespace

bool KnowsUsers(int listener) {
  const auto here = EndOf(listener, ::getsockname);
  return here && IsOwn(*here, {}, TCP_LISTEN);
}

bool IsPeerOwn(int socket) {
  const auto here = EndOf(socket, ::getsockname);
  const auto there = EndOf(socket, ::getpeername);
  return here && there && IsOwn(*there, *here, TCP_ESTABLISHED);
}

void ForbidInspection() {
  ::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
}

}  // namespace quillbox

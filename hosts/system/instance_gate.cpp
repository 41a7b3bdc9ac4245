#include "system/instance_gate.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <thread>

#include "system/streams.h"

namespace quillbox {
namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

bool IsOursAlone(const std::string& folder) {
  struct stat found {};
  return folder.starts_with('/') && ::stat(folder.c_str(), &found) == 0 && S_ISDIR(found.st_mode) &&
         found.st_uid == ::geteuid() && (found.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

// Empty when the person has no place for it.
std::string CacheFolder() {
  std::string cache = Variable("XDG_CACHE_HOME");
  if (!cache.starts_with('/')) {
    const std::string home = Variable("HOME");
    if (!home.starts_with('/')) return "";
    cache = home + "/.cache";
  }
  ::mkdir(cache.c_str(), S_IRWXU);
  std::string folder = cache + "/Quillbox";
  ::mkdir(folder.c_str(), S_IRWXU);
  return folder;
}

}  // namespace

std::string RuntimeFolder(std::size_t longest) {
  const auto fits = [&](const std::string& f) { return f.size() <= longest && IsOursAlone(f); };
  for (const std::string& folder :
       {Variable("XDG_RUNTIME_DIR"), "/run/user/" + std::to_string(::geteuid())}) {
    if (fits(folder)) return folder;
  }
  const std::string folder = CacheFolder();
  return fits(folder) ? folder : "";
}

namespace {

using namespace std::chrono_literals;
using SteadyTime = std::chrono::steady_clock::time_point;

constexpr std::string_view kAnswer = "QuillboxLaunched";
constexpr int kMostWaiting = 128;

int NewSocket() {
  return ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

sockaddr_un Address(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
  return address;
}

bool PeerIsThisUser(int socket) {
  ucred peer{};
  socklen_t size = sizeof peer;
  return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
         peer.uid == ::geteuid();
}

// Waits for the answer, at most until `end`.
bool HeardAnswer(int socket, SteadyTime end) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - SteadyTime::clock::now());
  if (left.count() < 0) return false;
  pollfd wait{socket, POLLIN, 0};
  if (::poll(&wait, 1, static_cast<int>(left.count())) != 1) return false;
  char answer[kAnswer.size()];
  return ::recv(socket, answer, sizeof answer, 0) == static_cast<ssize_t>(kAnswer.size());
}

bool KnockOnce(const std::string& path, SteadyTime end) {
  const int socket = NewSocket();
  if (socket < 0) return false;
  const sockaddr_un address = Address(path);
  const bool heard =
      ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
      PeerIsThisUser(socket) && HeardAnswer(socket, end);
  ::close(socket);
  return heard;
}

// A socket that listens at `path`, or -1.
int Listen(const std::string& path) {
  ::unlink(path.c_str());  // the lock is ours: whoever left it is dead
  const int door = NewSocket();
  if (door < 0) return -1;
  const sockaddr_un address = Address(path);
  if (::bind(door, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
      ::chmod(path.c_str(), S_IRUSR | S_IWUSR) == 0 && ::listen(door, kMostWaiting) == 0) {
    return door;
  }
  ::close(door);
  return -1;
}

}  // namespace

InstanceGate::InstanceGate(const std::string& folder)
    : lockPath_(folder.empty() ? "" : folder + "/quillbox.lock"),
      socketPath_(folder.empty() ? "" : folder + "/quillbox.socket") {}

InstanceGate::~InstanceGate() {
  Close();
}

bool InstanceGate::Pass() {
  if (lock_ || lockPath_.empty()) return true;
  auto lock = std::make_unique<FileDescriptor>(
      lockPath_, O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR);
  // A lock that can't be had for another reason than another holder would lock the person out.
  if (::flock(lock->Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
  lock_ = std::move(lock);
  door_ = Listen(socketPath_);
  return true;
}

int InstanceGate::AnswerKnocks() {
  int ours = 0;
  for (;;) {
    const int caller = ::accept4(door_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (caller < 0) return ours;
    if (PeerIsThisUser(caller)) {
      ++ours;
      ::send(caller, kAnswer.data(), kAnswer.size(), MSG_NOSIGNAL);
    }
    ::close(caller);
  }
}

bool InstanceGate::Knock(std::chrono::milliseconds patience) {
  if (socketPath_.empty()) return false;
  const SteadyTime end = SteadyTime::clock::now() + patience;
  do {
    if (KnockOnce(socketPath_, end)) return true;
    std::this_thread::sleep_for(20ms);
  } while (SteadyTime::clock::now() < end);
  return false;
}

void InstanceGate::Close() {
  if (door_ < 0) return;
  ::unlink(socketPath_.c_str());
  ::close(door_);
  door_ = -1;
}

}  // namespace quillbox

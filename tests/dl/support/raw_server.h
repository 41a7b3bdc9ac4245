// A server of a test's own that speaks bytes, secure or not, on a free port of the loopback
// interface.
#pragma once

#include <openssl/ssl.h>
#include <poll.h>
#include <sys/socket.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "dl/support/listening_program.h"
#include "throwaway_authority.h"

namespace quillbox {

// One connection; closed when it goes.
class RawConnection {
 public:
  // `context`: null for a plain one.
  RawConnection(int socket, SSL_CTX* context)
      : socket_(socket), secure_(context == nullptr ? nullptr : SSL_new(context), &SSL_free) {
    if (!secure_) return;
    SSL_set_fd(secure_.get(), socket_);
    SSL_accept(secure_.get());
  }
  // A secure one says that it ends.
  ~RawConnection() {
    if (secure_) SSL_shutdown(secure_.get());
    ::shutdown(socket_, SHUT_RDWR);
    ::close(socket_);
  }
  RawConnection(const RawConnection&) = delete;
  RawConnection& operator=(const RawConnection&) = delete;

  // The next bytes; empty at the end.
  std::string Read() const {
    std::string bytes(4096, '\0');
    const auto size = static_cast<int>(bytes.size());
    const auto got = secure_ ? SSL_read(secure_.get(), bytes.data(), size)
                             : static_cast<int>(::recv(socket_, bytes.data(), bytes.size(), 0));
    bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return bytes;
  }

  // False once nobody takes it.
  bool Write(std::string_view bytes) const {
    const auto size = static_cast<int>(bytes.size());
    return (secure_
                ? SSL_write(secure_.get(), bytes.data(), size)
                : static_cast<int>(::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL))) ==
           size;
  }

 private:
  int socket_;
  std::unique_ptr<SSL, decltype(&SSL_free)> secure_;
};

class RawServer {
 public:
  using Talk = std::function<void(const RawConnection&)>;

  // `talk` is had with each connection, one after the other. `context`: null for a plain server; it
  // must outlive it.
  RawServer(SSL_CTX* context, Talk talk) : context_(context), talk_(std::move(talk)) {
    port_ = socket_.Bind();
    socket_.Listen(8);
    thread_ = std::thread([this] { Serve(); });
  }
  ~RawServer() {
    stopped_ = true;
    thread_.join();
  }
  RawServer(const RawServer&) = delete;
  RawServer& operator=(const RawServer&) = delete;

  std::string Host() const { return "localhost:" + std::to_string(port_); }

 private:
  void Serve() {
    constexpr int kLookEveryMs = 20;
    while (!stopped_) {
      pollfd visitor{socket_.Number(), POLLIN, 0};
      if (::poll(&visitor, 1, kLookEveryMs) <= 0) continue;
      const int socket = ::accept(socket_.Number(), nullptr, nullptr);
      if (socket >= 0) talk_(RawConnection(socket, context_));
    }
  }

  SSL_CTX* context_;
  Talk talk_;
  LoopbackSocket socket_;
  int port_ = 0;
  std::atomic<bool> stopped_ = false;
  std::thread thread_;
};

}  // namespace quillbox

// Files and a port of this machine that tell how often anyone came to them.
#pragma once

#include <sys/inotify.h>
#include <unistd.h>

#include <QTcpServer>
#include <QTcpSocket>
#include <QUdpSocket>
#include <fstream>
#include <stdexcept>
#include <string>

namespace quillbox {

class WatchedFiles {
 public:
  WatchedFiles() = default;
  ~WatchedFiles() { ::close(descriptor_); }
  WatchedFiles(const WatchedFiles&) = delete;
  WatchedFiles& operator=(const WatchedFiles&) = delete;

  // Makes the file and watches it.
  void Add(const std::string& path) {
    std::ofstream(path) << "document.body.style.background = 'red'; // secret";
    if (::inotify_add_watch(descriptor_, path.c_str(), IN_OPEN | IN_ACCESS) < 0) {
      throw std::runtime_error("can't watch " + path);
    }
  }

  // How often watched files were opened or read since the last call.
  int TakeCount() {
    int count = 0;
    alignas(inotify_event) char events[4096];
    while (::read(descriptor_, events, sizeof events) > 0) ++count;
    return count;
  }

 private:
  const int descriptor_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
};

class WatchedPort {
 public:
  WatchedPort() {
    if (!stream_.listen(QHostAddress::LocalHost) ||
        !datagrams_.bind(QHostAddress::LocalHost, stream_.serverPort())) {
      throw std::runtime_error("can't listen");
    }
  }

  int Number() const { return stream_.serverPort(); }

  // Connections and datagrams since the last call.
  int TakeCount() {
    int count = 0;
    for (; stream_.hasPendingConnections() || stream_.waitForNewConnection(0); ++count) {
      delete stream_.nextPendingConnection();
    }
    for (; datagrams_.hasPendingDatagrams(); ++count) datagrams_.readDatagram(nullptr, 0);
    return count;
  }

 private:
  QTcpServer stream_;
  QUdpSocket datagrams_;
};

}  // namespace quillbox

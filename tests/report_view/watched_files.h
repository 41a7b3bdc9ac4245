// Files that tell when anyone opens them.
#pragma once

#include <string>

namespace quillbox {

class WatchedFiles {
 public:
  WatchedFiles();
  ~WatchedFiles();
  WatchedFiles(const WatchedFiles&) = delete;
  WatchedFiles& operator=(const WatchedFiles&) = delete;

  // Makes the file and watches it.
  void Add(const std::string& path);

  // How often watched files were opened or read since the last call.
  int TakeCount();

 private:
  int descriptor_;
};

// A port of this machine that counts who comes to it.
class WatchedPort {
 public:
  WatchedPort();
  ~WatchedPort();
  WatchedPort(const WatchedPort&) = delete;
  WatchedPort& operator=(const WatchedPort&) = delete;

  int Number() const { return number_; }

  // Connections and datagrams since the last call.
  int TakeCount();

 private:
  int number_ = 0;  // first: the sockets are bound to it
  int stream_, datagrams_;
};

}  // namespace quillbox

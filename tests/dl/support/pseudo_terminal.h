// A terminal with the test at its keyboard and screen.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "support/child_process.h"

namespace quillbox {

class PseudoTerminal {
 public:
  PseudoTerminal() : ours_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    if (::grantpt(ours_) != 0 || ::unlockpt(ours_) != 0) throw std::runtime_error("no terminal");
    path_ = ::ptsname(ours_);
    // Open also while no program has it, so that its settings last.
    programs_ = ::open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  }
  ~PseudoTerminal() {
    ::close(programs_);
    ::close(ours_);
  }
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  // How a program starts at this terminal, whose keys send it signals.
  ChildStart Start(const std::vector<std::string>& command,
                   const std::vector<std::string>& environment) const {
    ChildStart start{
        {"/bin/sh", "-c", "exec /usr/bin/setsid -c \"$@\" <\"$0\" >\"$0\" 2>&1", path_},
        environment};
    start.Arguments.insert(start.Arguments.end(), command.begin(), command.end());
    return start;
  }

  void Type(std::string_view keys) const {
    if (::write(ours_, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size())) {
      throw std::runtime_error("the terminal takes no keys");
    }
  }

  // What it shows next, up to `end`. Throws std::runtime_error when that doesn't come.
  std::string ReadTo(const std::string& end) const {
    std::string shown;
    while (!shown.ends_with(end)) {
      pollfd screen{ours_, POLLIN, 0};
      char c = 0;
      const bool shows = ::poll(&screen, 1, 60'000) > 0 && ::read(ours_, &c, 1) == 1;
      if (!shows) throw std::runtime_error("the terminal only shows: " + shown);
      shown += c;
    }
    return shown;
  }

  // Whether it shows what is typed.
  bool Echoes() const {
    termios settings{};
    return ::tcgetattr(programs_, &settings) == 0 && (settings.c_lflag & ECHO) != 0;
  }

 private:
  int ours_;
  std::string path_;
  int programs_ = -1;
};

}  // namespace quillbox

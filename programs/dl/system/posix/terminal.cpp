#include "system/terminal.h"

#include <poll.h>
#include <signal.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace quillbox {
namespace {

constexpr int kSignals[] = {SIGINT, SIGQUIT, SIGTSTP, SIGTERM, SIGHUP};
constexpr int kLookEveryMs = 100;

// While it lives the terminal doesn't show what is typed, and signals wait: they must not end or
// stop the program before the terminal is as it was.
class UnseenPrompt {
 public:
  UnseenPrompt(const termios& usual, const char* question) : usual_(usual) {
    sigset_t held;
    ::sigemptyset(&held);
    for (const int signal : kSignals) ::sigaddset(&held, signal);
    ::sigprocmask(SIG_BLOCK, &held, &heldBefore_);
    termios quiet = usual;
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
    std::fputs(question, stderr);
  }
  ~UnseenPrompt() {
    ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &usual_);
    std::fputs("\n", stderr);
    ::sigprocmask(SIG_SETMASK, &heldBefore_, nullptr);
  }
  UnseenPrompt(const UnseenPrompt&) = delete;
  UnseenPrompt& operator=(const UnseenPrompt&) = delete;

  // Whether there is a line, or the end of the input, to be read; false once a signal waits.
  bool AwaitLine() const {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    while (!SignalWaits()) {
      if (::poll(&input, 1, kLookEveryMs) > 0) return true;
    }
    return false;
  }

 private:
  bool SignalWaits() const {
    sigset_t waiting;
    ::sigpending(&waiting);
    return std::ranges::any_of(kSignals, [&](int signal) {
      return ::sigismember(&waiting, signal) == 1 && ::sigismember(&heldBefore_, signal) == 0;
    });
  }

  termios usual_;
  sigset_t heldBefore_;
};

// Whoever sits at the terminal can end the program, also where its starter ignored or held back the
// signals of its keys.
void HearKeys() {
  sigset_t keys;
  ::sigemptyset(&keys);
  for (const int key : {SIGINT, SIGQUIT}) {
    ::signal(key, SIG_DFL);
    ::sigaddset(&keys, key);
  }
  ::sigprocmask(SIG_UNBLOCK, &keys, nullptr);
}

}  // namespace

bool ErrorsAreSeen() {
  return ::isatty(STDERR_FILENO) == 1;
}

std::string ReadSecret(const char* question) {
  termios usual{};
  if (::tcgetattr(STDIN_FILENO, &usual) != 0) return ReadInputLine();
  HearKeys();
  // A signal takes effect between two prompts; a program that goes on after it asks again.
  for (;;) {
    const UnseenPrompt prompt(usual, question);
    if (prompt.AwaitLine()) return ReadInputLine();
  }
}

}  // namespace quillbox

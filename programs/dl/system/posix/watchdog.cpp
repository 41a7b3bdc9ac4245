#include "system/watchdog.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "request/answer.h"
#include "system/own_files.h"
#include "system/watch_state.h"

namespace quillbox {
namespace {

// What is told when the end comes: the log's code, or words.
struct LastWords {
  std::string Data = {}, Log = {}, Part = {};
  std::string Words = {};
  int Output = -1;
};

// What must be global: a signal's handler is told nothing. Set once.
const LastWords* last = nullptr;

constexpr int kNoAnswer = static_cast<int>(ResultCode::kNoAnswer);

// From here to the handlers: nothing but what a handler may call.

bool WriteCode() {
  const char code = '0' + kNoAnswer;
  const int file =
      ::open(last->Part.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, S_IRUSR | S_IWUSR);
  return file >= 0 && ::write(file, &code, 1) == 1 && ::fsync(file) == 0 &&
         ::rename(last->Part.c_str(), last->Log.c_str()) == 0;
}

[[noreturn]] void LeaveCode() {
  ::unlink(last->Data.c_str());
  ::unlink(last->Part.c_str());
  ::_exit(WriteCode() ? EXIT_SUCCESS : EXIT_FAILURE);
}

}  // namespace

[[noreturn]] void EndOverdue() {
  if (!last->Log.empty()) LeaveCode();
  // Who can't be told has the exit status.
  [[maybe_unused]] const ssize_t told =
      ::write(last->Output, last->Words.data(), last->Words.size());
  ::_exit(kNoAnswer);
}

namespace {

void OnCrash(int) {
  LeaveCode();
}

// It may run on a thread of a library's.
void OnTimeUp(int) {
  if (watch.TimeIsUp()) EndOverdue();
}

void Handle(int signal, void (*handler)(int), int flags) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = flags;
  ::sigaction(signal, &action, nullptr);
}

// libcurl ends an exchange at the limit itself and knows better why, so it is let go first.
void Start(std::chrono::milliseconds limit) {
  watch.Start();
  Handle(SIGALRM, &OnTimeUp, SA_RESTART);
  sigset_t alarm;
  ::sigemptyset(&alarm);
  ::sigaddset(&alarm, SIGALRM);
  ::sigprocmask(SIG_UNBLOCK, &alarm, nullptr);  // who started us may have blocked it
  const auto end = std::chrono::duration_cast<std::chrono::microseconds>(limit + limit / 20);
  itimerval timer{};
  timer.it_value.tv_sec = static_cast<time_t>(end.count() / 1'000'000);
  timer.it_value.tv_usec = static_cast<suseconds_t>(end.count() % 1'000'000) + 1;  // 0 is never
  ::setitimer(ITIMER_REAL, &timer, nullptr);
}

}  // namespace

[[noreturn]] void AwaitEnd() {
  for (;;) ::pause();
}

void WatchFetch(const std::string& dataPath, const std::string& logPath,
                std::chrono::milliseconds limit) {
  static const LastWords kLast{.Data = dataPath, .Log = logPath, .Part = PartPath(logPath)};
  last = &kLast;
  for (const int crash : {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT}) {
    Handle(crash, &OnCrash, static_cast<int>(SA_RESETHAND));
  }
  Start(limit);
}

void WatchCommand(const std::string& words, int output, std::chrono::milliseconds limit) {
  static const LastWords kLast{.Words = words + "\n", .Output = output};
  last = &kLast;
  Start(limit);
}

}  // namespace quillbox

// Measures for how long the process list shows the argument of a program that overwrites it.
//
//   argument-exposure PROGRAM [RUNS]
//
// Starts PROGRAM with an argument that leads nowhere, polls /proc/<process>/cmdline without a pause
// and prints, in microseconds, the median and the longest time from the first to the last sight.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kArgument =
    "Email=%61&Passwd=a-secret-to-look-for%#%https://127.0.0.1:1/x|/nowhere/x.dat|/nowhere/x.log";

pid_t Start(const char* program) {
  const pid_t child = ::fork();
  if (child != 0) return child;
  ::execl(program, program, kArgument, static_cast<char*>(nullptr));
  std::_Exit(127);
}

bool ShowsArgument(pid_t process) {
  char text[4096];
  const int file = ::open(("/proc/" + std::to_string(process) + "/cmdline").c_str(), O_RDONLY);
  const ssize_t size = ::read(file, text, sizeof text);
  ::close(file);
  if (size <= 0) return false;
  const std::string_view seen(text, static_cast<std::size_t>(size));
  return seen.find("a-secret-to-look-for") != std::string_view::npos;
}

long Exposure(const char* program) {
  const pid_t child = Start(program);
  Clock::time_point first{}, last{};
  while (::waitpid(child, nullptr, WNOHANG) == 0) {
    if (!ShowsArgument(child)) continue;
    last = Clock::now();
    if (first == Clock::time_point{}) first = last;
  }
  return static_cast<long>(
      std::chrono::duration_cast<std::chrono::microseconds>(last - first).count());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: argument-exposure PROGRAM [RUNS]\n", stderr);
    return 2;
  }
  const int runs = argc > 2 ? std::max(1, std::atoi(argv[2])) : 200;
  std::vector<long> times;
  for (int i = 0; i < runs; ++i) times.push_back(Exposure(argv[1]));
  std::sort(times.begin(), times.end());
  std::printf("%d runs: median %ld us, 99 of 100 below %ld us, longest %ld us\n", runs,
              times[times.size() / 2], times[times.size() * 99 / 100], times.back());
  return 0;
}

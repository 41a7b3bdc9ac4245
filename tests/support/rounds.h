// How often a test repeats what only goes wrong now and then.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <iostream>

namespace quillbox {

// Three, or what the environment variable QUILLBOX_ROUNDS says: the long runs set it.
inline int Rounds() {
  const char* const rounds = std::getenv("QUILLBOX_ROUNDS");
  return rounds == nullptr ? 3 : std::atoi(rounds);
}

// The longest of many waits, told when the last one is over.
class LongestWait {
 public:
  LongestWait() = default;
  LongestWait(const LongestWait&) = delete;
  LongestWait& operator=(const LongestWait&) = delete;
  ~LongestWait() { std::cout << "longest wait: " << longest_.count() << " ms\n"; }

  // What the wait gives.
  bool Of(const std::function<bool()>& wait) {
    using std::chrono::steady_clock;
    const auto begun = steady_clock::now();
    const bool result = wait();
    longest_ = std::max(longest_, std::chrono::duration_cast<std::chrono::milliseconds>(
                                      steady_clock::now() - begun));
    return result;
  }

 private:
  std::chrono::milliseconds longest_{0};
};

}  // namespace quillbox

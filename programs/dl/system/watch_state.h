// What a watchdog is doing, seen from the run, from its clock and from a signal's handler at once;
// and what each system does for it.
#pragma once

#include <atomic>

namespace quillbox {

class WatchState {
 public:
  void Start() { state_ = State::kOn; }

  // The time is up. True when the caller must end the process now.
  bool TimeIsUp() {
    State now = state_;
    while (now == State::kOn || now == State::kHeldBack) {
      const bool endsNow = now == State::kOn;
      if (state_.compare_exchange_weak(now, endsNow ? State::kOver : State::kOverdue))
        return endsNow;
    }
    return false;
  }

  // From now on the time no longer counts. True when the process is being ended already.
  bool Stop() { return state_.exchange(State::kOff) == State::kOver; }

  // Until Release the end waits. True when the process is being ended already.
  bool Hold() {
    State on = State::kOn;
    return !state_.compare_exchange_strong(on, State::kHeldBack) && on == State::kOver;
  }

  // True when the time was up meanwhile, so that the caller must end the process now.
  bool Release() {
    State held = State::kHeldBack;
    return !state_.compare_exchange_strong(held, State::kOn) && held == State::kOverdue;
  }

 private:
  enum class State { kOff, kOn, kHeldBack, kOverdue, kOver };
  std::atomic<State> state_ = State::kOff;
  static_assert(std::atomic<State>::is_always_lock_free, "a signal's handler uses it");
};

// The process's only one: a handler is told nothing.
inline WatchState watch;

// Leaves what is to be told, and ends the process. A signal's handler may call it.
[[noreturn]] void EndOverdue();

// On another thread the process is being ended.
[[noreturn]] void AwaitEnd();

}  // namespace quillbox

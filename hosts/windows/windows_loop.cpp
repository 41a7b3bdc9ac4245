#include "windows/windows_loop.h"

#include <windows.h>

#include <algorithm>
#include <map>
#include <utility>

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;

// A screen shows no more, and each tick wakes the processor.
constexpr milliseconds kFinest = 15ms;

// The system's own grain: what comes this much early has come in time.
constexpr milliseconds kGrain = 16ms;

class WindowsTimer;

// By the system's number for each that runs; all on the program's one thread.
std::map<UINT_PTR, WindowsTimer*>& Running() {
  static std::map<UINT_PTR, WindowsTimer*> timers;
  return timers;
}

// Set anew after each tick, so that nothing can tick while the handler runs.
class WindowsTimer : public Timer {
 public:
  WindowsTimer(milliseconds interval, std::function<void()> onTick)
      : interval_(std::max(interval, kFinest)), onTick_(std::move(onTick)) {}
  ~WindowsTimer() override { Stop(); }
  WindowsTimer(const WindowsTimer&) = delete;
  WindowsTimer& operator=(const WindowsTimer&) = delete;

  void SetEnabled(bool enabled) override {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    Stop();
    if (!enabled) return;
    due_ = SteadyClock::now() + interval_;
    if (!inHandler_) Start(interval_);
  }

  bool Enabled() const override { return enabled_; }

 private:
  static void CALLBACK Expired(HWND, UINT, UINT_PTR number, DWORD) {
    const auto found = Running().find(number);
    if (found != Running().end()) {
      found->second->Tick();
    } else {
      ::KillTimer(nullptr, number);
    }
  }

  void Start(milliseconds wait) {
    number_ = ::SetTimer(nullptr, 0, static_cast<UINT>(wait.count()), Expired);
    if (number_ != 0) Running()[number_] = this;
  }

  void Stop() {
    if (number_ == 0) return;
    ::KillTimer(nullptr, number_);
    Running().erase(number_);
    number_ = 0;
  }

  void Tick() {
    Stop();
    // A message that was on its way when the timer was turned off and on again.
    if (SteadyClock::now() + kGrain < due_) return Rearm();
    const std::weak_ptr<char> alive = alive_;  // the handler may throw the timer away
    const std::function<void()> handler = onTick_;
    due_ += interval_;
    inHandler_ = true;
    handler();
    if (alive.expired()) return;
    inHandler_ = false;
    if (enabled_) Rearm();
  }

  void Rearm() {
    const auto now = SteadyClock::now();
    while (due_ <= now) due_ += interval_;
    Start(std::chrono::ceil<milliseconds>(due_ - now));
  }

  const milliseconds interval_;
  const std::function<void()> onTick_;
  UINT_PTR number_ = 0;  // 0: the system has none for it
  SteadyClock::time_point due_;
  bool enabled_ = false;
  bool inHandler_ = false;
  const std::shared_ptr<char> alive_ = std::make_shared<char>();
};

}  // namespace

std::unique_ptr<Timer> WindowsTimers::NewTimer(milliseconds interval,
                                               std::function<void()> onTick) {
  return std::make_unique<WindowsTimer>(interval, std::move(onTick));
}

namespace {

void Handle(const MSG& message) {
  ::TranslateMessage(&message);
  ::DispatchMessageW(&message);
}

}  // namespace

// Bounded, for a handler may post a message each time. The end of the program is left to Run.
void WindowsEventPump::PumpEvents() {
  constexpr int kMost = 1000;
  MSG message{};
  for (int i = 0; i < kMost && ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
    if (message.message == WM_QUIT) return ::PostQuitMessage(static_cast<int>(message.wParam));
    Handle(message);
  }
}

void WindowsEventPump::Sleep(milliseconds duration) {
  ::Sleep(static_cast<DWORD>(std::max(duration, 0ms).count()));
}

int WindowsEventPump::Run() {
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) Handle(message);
  return static_cast<int>(message.wParam);
}

}  // namespace quillbox

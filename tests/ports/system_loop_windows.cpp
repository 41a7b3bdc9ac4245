#include <windows.h>

#include "ports/tried_loop.h"
#include "system/system_surroundings.h"
#include "windows/windows_loop.h"
#include "windows/windows_process.h"

namespace quillbox {
namespace {

class SystemLoop final : public TriedLoop {
 public:
  Timers& TimerSource() override { return timers_; }
  EventPump& Events() override { return events_; }
  Clock& Time() override { return clock_; }

 private:
  WindowsTimers timers_;
  WindowsEventPump events_;
  SystemClock clock_;
};

// With a window as the program has one.
class Instance final : public SingleInstance {
 public:
  explicit Instance(std::function<void()> launched) : launched_(std::move(launched)) {}
  ~Instance() override {
    if (window_ != nullptr) ::DestroyWindow(window_);
  }
  Instance(const Instance&) = delete;
  Instance& operator=(const Instance&) = delete;

  bool AnotherInstanceRuns() override {
    const bool runs = instance_.AnotherInstanceRuns();
    if (!runs && window_ == nullptr) MakeWindow();
    return runs;
  }
  void WakeRunningInstance() override { instance_.WakeRunningInstance(); }

 private:
  static LRESULT CALLBACK Told(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == ::RegisterWindowMessageW(kLaunchedMessage)) {
      reinterpret_cast<Instance*>(::GetWindowLongPtrW(window, GWLP_USERDATA))->launched_();
    }
    return ::DefWindowProcW(window, message, w, l);
  }

  void MakeWindow() {
    window_ = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr,
                                nullptr);
    ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Told));
    ::SetPropW(window_, kApplicationProperty, reinterpret_cast<HANDLE>(UINT_PTR{1}));
  }

  std::function<void()> launched_;
  WindowsSingleInstance instance_;
  HWND window_ = nullptr;
};

}  // namespace

std::unique_ptr<TriedLoop> MakeSystemLoop() {
  return std::make_unique<SystemLoop>();
}

std::unique_ptr<SingleInstance> MakeInstance(std::function<void()> launched) {
  return std::make_unique<Instance>(std::move(launched));
}

}  // namespace quillbox

// Ports on Qt's event loop: timers, pumping, single instance, and the way out of the process.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>
#include <utility>

#include "platform/host.h"
#include "platform/process.h"
#include "platform/timing.h"
#include "system/instance_gate.h"

namespace quillbox {

class QtTimers : public Timers {
 public:
  // No interval is shorter than 15 ms. Ticks keep to whole intervals from when the timer was turned
  // on; those that come due while the handler runs are left out.
  std::unique_ptr<Timer> NewTimer(std::chrono::milliseconds interval,
                                  std::function<void()> onTick) override;
};

class QtEventPump : public EventPump {
 public:
  void PumpEvents() override;
  void Sleep(std::chrono::milliseconds duration) override;
};

class QtProgramExit : public ProgramExit {
 public:
  // `lastActs` ends what must not outlive the process.
  explicit QtProgramExit(std::function<void()> lastActs) : lastActs_(std::move(lastActs)) {}

  [[noreturn]] void EndProcess() override;

 private:
  std::function<void()> lastActs_;
};

// Through the gate in the user's runtime folder.
class LocalSingleInstance : public SingleInstance {
 public:
  LocalSingleInstance();

  // Where QuillboxLaunched is reported.
  void Connect(HostEvents& events) { events_ = &events; }

  bool AnotherInstanceRuns() override;
  void WakeRunningInstance() override;

  // Later starts find nobody to wake.
  void Close();

 private:
  InstanceGate gate_;
  std::unique_ptr<QSocketNotifier> knocks_;
  HostEvents* events_ = nullptr;
};

}  // namespace quillbox

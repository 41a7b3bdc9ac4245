#include "desktop/qt_event_loop.h"
#include "platform/host.h"
#include "ports/tried_loop.h"
#include "system/system_surroundings.h"

namespace quillbox {
namespace {

class SystemLoop final : public TriedLoop {
 public:
  Timers& TimerSource() override { return timers_; }
  EventPump& Events() override { return events_; }
  Clock& Time() override { return clock_; }

 private:
  QtTimers timers_;
  QtEventPump events_;
  SystemClock clock_;
};

// What it tells a program goes to a function.
class Instance final : public SingleInstance, private HostEvents {
 public:
  explicit Instance(std::function<void()> launched) : launched_(std::move(launched)) {
    instance_.Connect(*this);
  }
  bool AnotherInstanceRuns() override { return instance_.AnotherInstanceRuns(); }
  void WakeRunningInstance() override { instance_.WakeRunningInstance(); }

 private:
  void TaskbarCreated() override {}
  void QuillboxLaunched() override { launched_(); }
  void Form_MouseMove(TrayMouse) override {}
  const Menu& TrayMenu() override { return menu_; }
  void MenuItemChosen(const MenuItem&) override {}

  std::function<void()> launched_;
  Menu menu_;
  LocalSingleInstance instance_;
};

}  // namespace

std::unique_ptr<TriedLoop> MakeSystemLoop() {
  return std::make_unique<SystemLoop>();
}

std::unique_ptr<SingleInstance> MakeInstance(std::function<void()> launched) {
  return std::make_unique<Instance>(std::move(launched));
}

}  // namespace quillbox

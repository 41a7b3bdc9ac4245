// A whole host on simulated time.
#include "simulated/simulated_host.h"

#include <optional>

namespace quillbox {
namespace {

using std::chrono::milliseconds;

constexpr std::chrono::local_seconds kBegin =
    std::chrono::local_days{std::chrono::year{2007} / 1 / 31} + std::chrono::hours{9} +
    std::chrono::minutes{5};

std::optional<MenuItem> FindItem(const Menu& menu, std::string_view wanted) {
  std::optional<MenuItem> found;
  for (const MenuItem& item : menu) {
    const bool fits =
        !item.Submenu && !item.Separator && (item.Name == wanted || item.Caption == wanted);
    if (fits) found = item;
    if (auto inside = FindItem(item.Items, wanted)) found = std::move(inside);
  }
  return found;
}

}  // namespace

SimulatedHost::SimulatedHost(std::uint64_t seed)
    : Effects(Time),
      Store(&Effects),
      Files({}, seed),
      TimerSource(Time),
      Agents(Time, Files, Effects, seed),
      Grants(Time, Effects),
      Tray(Effects),
      TrayMenus(Time, Effects, [this](const std::string& item) { Choose(item); }),
      Tooltip(Effects),
      Boxes(Time, Effects),
      Windows(Effects),
      Chooser(Effects),
      Browser(Time, Effects),
      Speaker(Effects),
      Instance(Effects),
      Opener(Effects),
      StartUp(Effects),
      exit_(Effects) {
  Time.SetLocalTime(kBegin);
  Files.TraceTo(&Effects);
}

Host SimulatedHost::Ports() {
  return {Store,   Variables, Files,   Time,   TimerSource, Time,    Agents,  Grants,
          Tray,    TrayMenus, Tooltip, Mouse,  Boxes,       Windows, Chooser, Browser,
          Speaker, Instance,  Network, Opener, StartUp,     exit_};
}

void SimulatedHost::Connect(HostEvents& events) {
  events_ = &events;
  ended_ = false;
}

// The outermost call alone stops the way out: inner ones belong to what the process is doing.
void SimulatedHost::Do(const Action& action) {
  ++depth_;
  try {
    action();
  } catch (const ProcessEnded&) {
    --depth_;
    if (depth_ > 0) throw;
    ProcessIsGone();
    return;
  } catch (...) {
    --depth_;
    throw;
  }
  --depth_;
}

void SimulatedHost::RunFor(milliseconds duration) {
  RunUntil([] { return false; }, duration);
}

bool SimulatedHost::RunUntil(const std::function<bool()>& done, milliseconds limit) {
  const TimePoint end = Time.Now() + limit;
  bool isDone = false;
  Do([&] { isDone = Time.RunUntil(done, end); });
  return isDone;
}

void SimulatedHost::After(milliseconds delay, Action action) {
  Time.After(delay, std::move(action));
}

void SimulatedHost::Kill() {
  if (depth_ > 0) throw ProcessEnded{};
  ProcessIsGone();
}

void SimulatedHost::ProcessIsGone() {
  ended_ = true;
  events_ = nullptr;
  TimerSource.StopAll();
  Agents.EndAll();
  Grants.EndAll();
  Windows.ProgramEnded();
  Tooltip.ProgramEnded();
  Tray.LoseIcon();
  Store.ProgramEnded();
}

void SimulatedHost::Tell(const std::function<void(HostEvents&)>& event) {
  Do([&] {
    if (events_ != nullptr) event(*events_);
  });
}

void SimulatedHost::TrayAppears() {
  Tray.SetPresent(true);
  Tell([](HostEvents& events) { events.TaskbarCreated(); });
}

void SimulatedHost::TrayRestarts() {
  TrayAppears();
}

void SimulatedHost::LaunchAgain() {
  Tell([](HostEvents& events) { events.QuillboxLaunched(); });
}

void SimulatedHost::Hover(PixelPoint cursor) {
  Mouse.MoveTo(cursor);
  Tell([](HostEvents& events) { events.Form_MouseMove(TrayMouse::kMove); });
}

void SimulatedHost::LeftDown() {
  Tell([](HostEvents& events) { events.Form_MouseMove(TrayMouse::kLeftDown); });
}

void SimulatedHost::DoubleClick() {
  Tell([](HostEvents& events) { events.Form_MouseMove(TrayMouse::kLeftDoubleClick); });
}

void SimulatedHost::RightDown() {
  Tell([](HostEvents& events) { events.Form_MouseMove(TrayMouse::kRightDown); });
}

bool SimulatedHost::Choose(std::string_view item) {
  bool chosen = false;
  if (!Runs()) Effects.Add("menu", std::string(item) + ", no program");
  Tell([&](HostEvents& events) {
    const std::optional<MenuItem> found = FindItem(events.TrayMenu(), item);
    chosen = found && found->Enabled;
    const char* refusal = !found ? ", no such item" : ", disabled";
    Effects.Add("menu", std::string(item) + (chosen ? "" : refusal));
    if (chosen) events.MenuItemChosen(*found);
  });
  return chosen;
}

}  // namespace quillbox

#include "shell/form1.h"

#include <utility>

#include "config/setting_keys.h"
#include "evaluation/tray_stats.h"
#include "platform/event_pump.h"
#include "platform/network_state.h"
#include "platform/tray_host.h"
#include "platform/tray_menu_host.h"
#include "retrieval/refresh_cycle.h"
#include "shell/update_schedule.h"
#include "tray/tray_icon.h"
#include "tray/tray_menu.h"
#include "update/version_check.h"

namespace quillbox {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kMinute{60000};
constexpr milliseconds kSoon{1};
constexpr milliseconds kDelayedStart{30000};

// After the tray came (back): the icon, and with it the figures of the primary account. False when
// there is no tray after all.
bool ShowInNewTray(const ProgramContext& program) {
  const bool added = AddTrayIcon(program);
  const std::string primary = program.Store.ReadSetting(kPrimaryAccount);
  if (!primary.empty()) UpdateTrayStats(program, primary);
  return added;
}

}  // namespace

Form1::Form1(const ProgramContext& program)
    : program_(program),
      hover_(program),
      clicks_(program, [this](const std::string& action) { RunTrayAction(action); }) {
  quillbox::Timers& timers = program.Host.TimerSource;
  Timer1_ = timers.NewTimer(kMinute, [this] { AutoUpdateTick(); });
  Timer2_ = timers.NewTimer(kMinute, [this] { AutoUpdateTick(); });
  Timer3_ = timers.NewTimer(kSoon, [this] { Timer3_Timer(); });
  Timer8_ = timers.NewTimer(kDelayedStart, [this] { Timer8_Timer(); });
}

Form1::~Form1() = default;

void Form1::Load() {
  Timer3_->SetEnabled(true);
}

void Form1::StartTimer8(std::string tag) {
  timer8Tag_ = std::move(tag);
  Timer8_->SetEnabled(true);
}

void Form1::StartTimer1() {
  SetAutoUpdateRate();
  program_.State.UpdateMinuteCount = 0;
  Timer1_->SetEnabled(true);
}

void Form1::SetAutoUpdateRate() {
  program_.State.UpdateRateMinutes = RateMinutes(program_.Store.ReadSetting(kAutoUpdateRate));
}

// A tick that comes during a cycle is skipped whole: no count, no swap.
void Form1::AutoUpdateTick() {
  AppState& state = program_.State;
  if (state.RefreshRunning) return;
  state.UpdateMinuteCount = CountMinute(state.UpdateMinuteCount);
  if (RefreshDue(state.UpdateMinuteCount, state.UpdateRateMinutes)) {
    const bool onlyWhenOnline = program_.Store.ReadSetting(kAutoUpdateWhenConnected) == kTrue;
    if (onlyWhenOnline && !program_.Host.Network.IsOnline()) return;
    state.UpdateMinuteCount = 0;
    RefreshAllAccounts(program_);
  }
  SwapTimers();
}

// The other half of the minute clock starts a fresh minute. A clock that was stopped meanwhile
// stays so.
void Form1::SwapTimers() {
  if (!Timer1_->Enabled() && !Timer2_->Enabled()) return;
  const bool first = Timer1_->Enabled();
  Timer1_->SetEnabled(!first);
  Timer2_->SetEnabled(first);
}

void Form1::Timer3_Timer() {
  BuildAccountStatsMenus(program_);
  FillOpenAccountMenu(program_);
  Timer3_->SetEnabled(false);
}

void Form1::Timer8_Timer() {
  Timer8_->SetEnabled(false);
  const auto tagged = [this](std::string_view word) {
    return timer8Tag_.find(word) != std::string::npos;
  };
  if (tagged("Refresh")) RefreshAllAccounts(program_);
  if (tagged("Check")) CheckForUpdate(program_, "No");
}

void Form1::TaskbarCreated() {
  ShowInNewTray(program_);
}

// A modification that fails tells that the tray has lost the icon. Without any tray a second start
// is the person's one way to the program.
void Form1::QuillboxLaunched() {
  const bool there =
      program_.Host.Tray.Apply(TrayOperation::kModify, program_.State.TrayIconRecord);
  if (!there && !ShowInNewTray(program_)) Options_Click();
}

void Form1::Form_MouseMove(TrayMouse code) {
  switch (code) {
    case TrayMouse::kMove:
      if (trayMenuTag_.empty()) hover_.MouseMoved();
      break;
    case TrayMouse::kLeftDown:
      clicks_.LeftDown();
      break;
    case TrayMouse::kLeftDoubleClick:
      clicks_.DoubleClick();
      break;
    case TrayMouse::kRightDown:
      RightDown();
      break;
  }
}

// The marker stays when the program could not come to the foreground: the menu may then still be
// up.
void Form1::RightDown() {
  hover_.Stop();
  trayMenuTag_ = "Open";
  program_.Host.Events.PumpEvents();
  const bool inForeground = program_.Host.TrayMenus.BringToForeground();
  program_.Host.Events.PumpEvents();
  program_.Host.TrayMenus.PopUp();
  if (inForeground) trayMenuTag_.clear();
}

}  // namespace quillbox

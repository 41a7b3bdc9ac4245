#include "retrieval/auto_update.h"

#include <limits>

#include "config/setting_keys.h"
#include "platform/surroundings.h"
#include "retrieval/refresh_cycle.h"

namespace quillbox {
namespace {

constexpr std::chrono::minutes kMinute{1};

// One minute more, kept within 16 signed bits.
std::int16_t CountMinute(std::int16_t minuteCount) {
  if (minuteCount == std::numeric_limits<std::int16_t>::max()) return minuteCount;
  return static_cast<std::int16_t>(minuteCount + 1);
}

bool RefreshDue(std::int16_t minuteCount, std::int16_t rateMinutes) {
  return minuteCount > rateMinutes - 1;
}

}  // namespace

AutoUpdate::AutoUpdate(const ProgramContext& program) : program_(program) {
  quillbox::Timers& timers = program.Host.TimerSource;
  Timer1_ = timers.NewTimer(kMinute, [this] { Tick(); });
  Timer2_ = timers.NewTimer(kMinute, [this] { Tick(); });
}

void AutoUpdate::SetAutoUpdateRate() {
  program_.State.UpdateRateMinutes = RateMinutes(program_.Store.ReadSetting(kAutoUpdateRate));
}

bool AutoUpdate::Running() const {
  return Timer1_->Enabled() || Timer2_->Enabled();
}

void AutoUpdate::Start() {
  program_.State.UpdateMinuteCount = 0;
  if (!Running()) Timer1_->SetEnabled(true);
}

void AutoUpdate::Stop() {
  Timer1_->SetEnabled(false);
  Timer2_->SetEnabled(false);
}

// A tick that comes during a cycle is skipped whole: no count, no swap.
void AutoUpdate::Tick() {
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
void AutoUpdate::SwapTimers() {
  if (!Running()) return;
  const bool first = Timer1_->Enabled();
  Timer1_->SetEnabled(!first);
  Timer2_->SetEnabled(first);
}

std::int16_t RateMinutes(std::string_view rate) {
  for (const UpdateRate& known : kUpdateRates) {
    if (known.Text == rate) return static_cast<std::int16_t>(known.Minutes);
  }
  return kDefaultUpdateMinutes;
}

}  // namespace quillbox

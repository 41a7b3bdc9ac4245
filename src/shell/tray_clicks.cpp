#include "shell/tray_clicks.h"

#include <chrono>
#include <utility>

namespace quillbox {
namespace {

constexpr std::chrono::milliseconds kDoubleClick{200};

}  // namespace

TrayClicks::TrayClicks(const ProgramContext& program, std::function<void(const std::string&)> run)
    : program_(program), run_(std::move(run)) {
  Timer4_ = program.Host.TimerSource.NewTimer(kDoubleClick, [this] { Timer4_Timer(); });
}

TrayClicks::~TrayClicks() = default;

void TrayClicks::LeftDown() {
  Timer4_->SetEnabled(true);
}

void TrayClicks::DoubleClick() {
  if (!Timer4_->Enabled()) return;
  Timer4_->SetEnabled(false);
  run_(program_.State.TrayAction);
}

// Off before the action, which may pump events: one click must not run it twice, and a click during
// a long action counts as a new one.
void TrayClicks::Timer4_Timer() {
  Timer4_->SetEnabled(false);
  run_(program_.State.TraySingleAction);
}

}  // namespace quillbox

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

// Off before the action, which may pump events: a double click that comes too late for this click
// must find it off. Off again behind it: a click during the action is not saved up for later.
void TrayClicks::Timer4_Timer() {
  Timer4_->SetEnabled(false);
  run_(program_.State.TraySingleAction);
  Timer4_->SetEnabled(false);
}

}  // namespace quillbox

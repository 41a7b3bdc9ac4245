#include "shell/tray_mouse.h"

#include <chrono>
#include <utility>

#include "config/application_folder.h"
#include "platform/tooltip_window.h"
#include "tooltip/tooltip_picture.h"

namespace quillbox {
namespace {

constexpr std::chrono::milliseconds kPoll{1};
constexpr std::chrono::milliseconds kRest{400};

PixelPoint LastHover(const AppState& state) {
  return {state.HoverX, state.HoverY};
}

constexpr std::chrono::milliseconds kDoubleClick{200};

}  // namespace

TooltipHover::TooltipHover(const ProgramContext& program) : program_(program) {
  Timer6_ = program.Host.TimerSource.NewTimer(kPoll, [this] { Timer6_Timer(); });
  Timer7_ = program.Host.TimerSource.NewTimer(kRest, [this] { Timer7_Timer(); });
}

TooltipHover::~TooltipHover() = default;

void TooltipHover::MouseMoved() {
  AppState& state = program_.State;
  if (!state.TooltipShowing) Timer6_->SetEnabled(true);
  const PixelPoint cursor = program_.Host.Mouse.Position();
  state.HoverX = cursor.X;
  state.HoverY = cursor.Y;
}

void TooltipHover::Stop() {
  StopTimers();
  if (program_.State.TooltipShowing) UnloadTooltipWin();
}

void TooltipHover::StopTimers() {
  Timer7_->SetEnabled(false);
  Timer6_->SetEnabled(false);
}

void TooltipHover::Timer6_Timer() {
  Timer7_->SetEnabled(true);
  if (program_.Host.Mouse.Position() == LastHover(program_.State)) return;
  Stop();
}

// The window reads text, skin and place at this moment; one that is up already stays as it is.
void TooltipHover::Timer7_Timer() {
  program_.State.TooltipShowing = true;
  if (!loaded_) {
    loaded_ = true;
    program_.Host.Tooltip.Show(BuildTooltipPicture(
        program_.State.TooltipText, program_.Host.Disk,
        FindProgramFile(program_.Host.Disk, program_.Folder, "skin.ini"),
        FindProgramFile(program_.Host.Disk, program_.Folder, "Skin.gif"), program_.Host.Tooltip));
  }
  Timer7_->SetEnabled(false);
}

void TooltipHover::UnloadTooltipWin() {
  program_.State.TooltipShowing = false;
  loaded_ = false;
  program_.Host.Tooltip.Close();
}

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

// Disabled before the action, which may pump events: a double click that comes too late for this
// click must find it so. Disabled again afterwards, to drop clicks made meanwhile.
void TrayClicks::Timer4_Timer() {
  Timer4_->SetEnabled(false);
  run_(program_.State.TraySingleAction);
  Timer4_->SetEnabled(false);
}

}  // namespace quillbox

#include "shell/form1.h"

#include <utility>

#include "config/setting_keys.h"
#include "evaluation/tray_stats.h"
#include "platform/timing.h"
#include "platform/tray.h"
#include "retrieval/refresh_cycle.h"
#include "tray/tray_icon.h"
#include "update/version_check.h"

namespace quillbox {
namespace {

using std::chrono::milliseconds;

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
      autoUpdate_(program),
      hover_(program),
      clicks_(program, [this](const std::string& action) { RunTrayAction(action); }),
      openDialog_(program.Host.Chooser, program.Folder.Separator()),
      reportsWin_(program),
      aboutWin_(program.Build, program.Host.Opener, program.Host.Windows) {
  quillbox::Timers& timers = program.Host.TimerSource;
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
  autoUpdate_.SetAutoUpdateRate();
  autoUpdate_.Start();
}

// A refresh at the start that had nothing to wait for has filled them already: hence anew.
void Form1::Timer3_Timer() {
  RebuildAccountMenus(program_);
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

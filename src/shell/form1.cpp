#include "shell/form1.h"

#include <string>
#include <utility>

#include "config/setting_keys.h"
#include "evaluation/tray_stats.h"
#include "platform/forms.h"
#include "platform/process.h"
#include "platform/storage.h"
#include "platform/surroundings.h"
#include "platform/timing.h"
#include "platform/tray.h"
#include "retrieval/open_account.h"
#include "retrieval/refresh_cycle.h"
#include "tray/tray_icon.h"
#include "tray/tray_menu.h"
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

void OpenOnMakersSite(const ProgramContext& program, const std::string& path) {
  program.Host.Opener.Open(program.Build.MakerAddress + path);
}

void TWVisit_Click(const ProgramContext& program) {
  OpenOnMakersSite(program, "");
}
void TWDonate_Click(const ProgramContext& program) {
  OpenOnMakersSite(program, "/Donate.asp");
}

void QuillboxSupportForums_Click(const ProgramContext& program) {
  program.Host.Opener.Open(program.Build.ForumAddress());
}

void SendBugReport_Click(const ProgramContext& program) {
  OpenOnMakersSite(program, "/BugReport.asp?Application=Quillbox&Version=" + program.Build.Version);
}

// Opens the manual, or says that it is missing.
void QuillboxManual_Click(const ProgramContext& program) {
  const std::string manual = program.Folder.SharedFile("ReadMe.txt");
  if (program.Host.Disk.Exists(manual)) {
    program.Host.Opener.Open(manual);
    return;
  }
  program.Host.Boxes.Show(
      {.Text = "The Help File is missing!  Reinstall Quillbox to correct this problem.",
       .Icon = BoxIcon::kExclamation});
}

}  // namespace

Form1::Form1(const ProgramContext& program)
    : program_(program),
      autoUpdate_(program),
      hover_(program),
      clicks_(program, [this](const std::string& action) { RunTrayAction(action); }),
      openDialog_(program.Host.Chooser),
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

void Form1::StartTimer8(DelayedStart start) {
  delayedStart_ = start;
  Timer8_->SetEnabled(true);
}

void Form1::StartTimer1() {
  autoUpdate_.SetAutoUpdateRate();
  autoUpdate_.Start();
}

// A start-up refresh may have filled them already, so rebuild.
void Form1::Timer3_Timer() {
  RebuildAccountMenus(program_);
  Timer3_->SetEnabled(false);
}

void Form1::Timer8_Timer() {
  Timer8_->SetEnabled(false);
  if (delayedStart_.Refresh) RefreshAllAccounts(program_);
  if (delayedStart_.Check) CheckForUpdate(program_, CheckedFor::kProgram);
}

void Form1::TaskbarCreated() {
  ShowInNewTray(program_);
}

// When the modification fails, the tray has lost the icon. Without any tray, a second start is the
// only way to the program.
void Form1::QuillboxLaunched() {
  const bool there =
      program_.Host.Tray.Apply(TrayOperation::kModify, program_.State.TrayIconRecord);
  if (!there && !ShowInNewTray(program_)) Options_Click();
}

void Form1::Form_MouseMove(TrayMouse code) {
  switch (code) {
    case TrayMouse::kMove:
      if (!trayMenuOpen_) hover_.MouseMoved();
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

// When the program could not come to the foreground, the menu may still be up.
void Form1::RightDown() {
  hover_.Stop();
  trayMenuOpen_ = true;
  program_.Host.Events.PumpEvents();
  const bool inForeground = program_.Host.TrayMenus.BringToForeground();
  program_.Host.Events.PumpEvents();
  program_.Host.TrayMenus.PopUp();
  if (inForeground) trayMenuOpen_ = false;
}

// What the items of the tray menu and the tray actions do.

void Form1::Options_Click() {
  if (opts_ && opts_->Loaded()) return;
  opts_ = std::make_unique<Opts>(program_, autoUpdate_, openDialog_);
  opts_->Load();
}

void Form1::RefreshNow_Click() {
  RefreshAllAccounts(program_);
}

void Form1::Exit_Click() {
  RemoveTrayIcon(program_);
  hover_.Stop();
  program_.Host.Windows.UnloadAll();
  program_.Host.Exit.EndProcess();
}

const Menu& Form1::TrayMenu() {
  return program_.State.TrayMenu;
}

void Form1::RunTrayAction(const std::string& action) {
  if (action == kActionOpenAccount) OpenAccount(program_, "");
  if (action == kActionOptions) Options_Click();
  if (action == kActionRefresh) RefreshNow_Click();
  if (action == kActionVisit) TWVisit_Click(program_);
}

void Form1::MenuItemChosen(const MenuItem& item) {
  if (item.Command >= kOpenAccountCommand) {
    OpenAccountOfCommand(item.Command);
    return;
  }
  static constexpr struct {
    std::string_view Name;
    void (*Click)(Form1&);
  } kHandlers[] = {
      {"Options", [](Form1& form) { form.Options_Click(); }},
      {"RefreshNow", [](Form1& form) { form.RefreshNow_Click(); }},
      {"Reports", [](Form1& form) { form.reportsWin_.Load(); }},
      {"About", [](Form1& form) { form.program_.Host.Windows.Load(form.aboutWin_); }},
      {"QuillboxManual", [](Form1& form) { QuillboxManual_Click(form.program_); }},
      {"QuillboxSupportForums", [](Form1& form) { QuillboxSupportForums_Click(form.program_); }},
      {"SendBugReport", [](Form1& form) { SendBugReport_Click(form.program_); }},
      {"CheckForNewVersion",
       [](Form1& form) { CheckForUpdate(form.program_, CheckedFor::kPerson); }},
      {"TWVisit", [](Form1& form) { TWVisit_Click(form.program_); }},
      {"TWDonate", [](Form1& form) { TWDonate_Click(form.program_); }},
      {"Exit", [](Form1& form) { form.Exit_Click(); }},
  };
  for (const auto& handler : kHandlers) {
    if (handler.Name == item.Name) return handler.Click(*this);
  }
}

// The menu may be older than the list of accounts.
void Form1::OpenAccountOfCommand(int command) {
  const auto index = static_cast<std::size_t>(command - kOpenAccountCommand);
  const AppState& state = program_.State;
  if (index < state.Accounts.size()) OpenAccount(program_, state.Accounts[index]);
}

}  // namespace quillbox

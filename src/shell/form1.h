// The hidden form: owns the timers and the menu's handlers, and hears what the host reports.
#pragma once

#include <memory>
#include <string>

#include "about/about_win.h"
#include "options/open_dialog.h"
#include "options/opts.h"
#include "platform/host.h"
#include "platform/timing.h"
#include "reports/reports_win.h"
#include "retrieval/auto_update.h"
#include "shell/tooltip_hover.h"
#include "shell/tray_clicks.h"
#include "state/program_context.h"

namespace quillbox {

class Form1 final : public HostEvents {
 public:
  // The context must outlive the form.
  explicit Form1(const ProgramContext& program);
  ~Form1() override;

  // From here on the form's design-time timer runs.
  void Load();

  // The delayed start: 30 seconds from now, does what `Tag` names ("Refresh", "Check").
  void StartTimer8(std::string tag);

  // Starts automatic refresh at the stored rate.
  void StartTimer1();

  // Carries out one of the texts of Action and SingleAction; any other text does nothing.
  void RunTrayAction(const std::string& action);

  // Opens the Options dialog; nothing when it is open.
  void Options_Click();

  // A refresh on request; nothing while one is running.
  void RefreshNow_Click();

  // The way out: the icon goes, all forms close, the process ends.
  void Exit_Click();

  // HostEvents
  void TaskbarCreated() override;
  void QuillboxLaunched() override;
  void Form_MouseMove(TrayMouse code) override;
  const Menu& TrayMenu() override;
  void MenuItemChosen(const MenuItem& item) override;

 private:
  void Timer3_Timer();
  void Timer8_Timer();
  void RightDown();
  void OpenAccountOfCommand(int command);

  const ProgramContext& program_;
  AutoUpdate autoUpdate_;
  std::unique_ptr<Timer> Timer3_;  // fills the submenus once
  std::unique_ptr<Timer> Timer8_;  // the delayed start
  std::string timer8Tag_;
  std::string trayMenuTag_;  // "Open" while the tray menu is up
  TooltipHover hover_;
  TrayClicks clicks_;
  OpenDialog openDialog_;
  std::unique_ptr<Opts> opts_;  // of the last opening
  ReportsWin reportsWin_;
  AboutWin aboutWin_;
};

}  // namespace quillbox

// The hidden window: has the timers, handles the commands of the tray menu, and is told by the host
// what happens to the icon.
#pragma once

#include <memory>
#include <string>

#include "about/about_win.h"
#include "options/opts.h"
#include "options/page_parts.h"
#include "platform/host.h"
#include "platform/timing.h"
#include "reports/reports_win.h"
#include "retrieval/auto_update.h"
#include "shell/tray_mouse.h"
#include "state/program_context.h"

namespace quillbox {

class Form1 final : public HostEvents {
 public:
  // The context must outlive the form.
  explicit Form1(const ProgramContext& program);
  ~Form1() override;

  // Starts the timer that fills the menu's account lists.
  void Load();

  // What is left to do when the start-up pause is over.
  struct DelayedStart {
    bool Refresh = false;
    bool Check = false;  // for a newer version
  };
  // Does it 30 seconds from now.
  void StartTimer8(DelayedStart start);

  // Starts automatic refresh at the stored rate.
  void StartTimer1();

  // Carries out one of the texts of Action and SingleAction; any other text does nothing.
  void RunTrayAction(const std::string& action);

  // Opens the Options dialog; nothing when it is open.
  void Options_Click();

  // A refresh on request; nothing while one is running.
  void RefreshNow_Click();

  // Removes the icon, closes all forms and ends the process.
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
  DelayedStart delayedStart_;
  bool trayMenuOpen_ = false;
  TooltipHover hover_;
  TrayClicks clicks_;
  OpenDialog openDialog_;
  std::unique_ptr<Opts> opts_;  // of the last opening
  ReportsWin reportsWin_;
  AboutWin aboutWin_;
};

}  // namespace quillbox

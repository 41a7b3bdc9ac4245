// What the items of the tray menu and the tray actions do.
#include "config/setting_keys.h"
#include "platform/forms.h"
#include "platform/process.h"
#include "retrieval/open_account.h"
#include "retrieval/refresh_cycle.h"
#include "shell/form1.h"
#include "shell/web_links.h"
#include "tray/tray_icon.h"
#include "tray/tray_menu.h"
#include "update/version_check.h"

namespace quillbox {

void Form1::Options_Click() {
  if (opts_ && opts_->Loaded()) return;
  opts_ = std::make_unique<Opts>(program_, autoUpdate_, openDialog_);
  opts_->Load();
}

void Form1::RefreshNow_Click() {
  if (!program_.State.RefreshRunning) RefreshAllAccounts(program_);
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
      {"CheckForNewVersion", [](Form1& form) { CheckForUpdate(form.program_, "Yes"); }},
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

#include "tray/tray_menu.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "platform/tray.h"

namespace quillbox {
namespace {

// The popups can be rebuilt for this many accounts.
constexpr std::size_t kMostAccounts = 201;

MenuItem Item(std::string name, std::string caption) {
  MenuItem item;
  item.Name = std::move(name);
  item.Caption = std::move(caption);
  return item;
}

MenuItem Separator(std::string name) {
  MenuItem item = Item(std::move(name), "");
  item.Separator = true;
  return item;
}

MenuItem Submenu(std::string name, std::string caption, Menu items) {
  MenuItem item = Item(std::move(name), std::move(caption));
  item.Submenu = true;
  item.Items = std::move(items);
  return item;
}

// The menu without the two submenus of accounts, which are put in at run time.
Menu DesignedTrayMenu() {
  Menu menu = {
      Item("Options", "Options..."),
      Separator("Sep1"),
      Item("RefreshNow", "Refresh Now"),
      Separator("Sep3"),
      Item("Reports", "Reports..."),
      Separator("sep99"),
      Item("About", "About..."),
      Submenu("Help", "Help",
              {Item("QuillboxManual", "Quillbox Manual"),
               Item("QuillboxSupportForums", "Quillbox Support Forums"),
               Item("SendBugReport", "Send Bug Report")}),
      Item("CheckForNewVersion", "Check for New Version"),
      Separator("Sep4"),
      Item("TWVisit", "Visit Tarnwick Works"),
      Item("TWDonate", "Support Quillbox"),
      Separator("Sep2"),
      Item("Exit", "Exit"),
  };
  menu.front().Default = true;
  return menu;
}

void RemoveFirstItems(Menu& menu) {
  const std::size_t count = std::min(menu.size(), kMostAccounts);
  menu.erase(menu.begin(), menu.begin() + static_cast<std::ptrdiff_t>(count));
}

}  // namespace

void BuildTraySubmenus(const ProgramContext& program) {
  Menu menu = DesignedTrayMenu();
  // The later insertion moves the earlier one down: "Accounts" ends at position 5.
  menu.insert(menu.begin() + 4, Submenu("AccountsMenu", "Accounts", {}));
  menu.insert(menu.begin() + 3, Submenu("OpenAccountMenu", "Open AdSense Account", {}));
  program.State.TrayMenu = std::move(menu);
  TrayMenuChanged(program);
}

MenuItem& TrayMenuItem(AppState& state, std::string_view name) {
  return *std::find_if(state.TrayMenu.begin(), state.TrayMenu.end(),
                       [name](const MenuItem& item) { return item.Name == name; });
}

Menu& AccountsMenu(AppState& state) {
  return TrayMenuItem(state, "AccountsMenu").Items;
}
Menu& OpenAccountMenu(AppState& state) {
  return TrayMenuItem(state, "OpenAccountMenu").Items;
}

void EnableRefreshNow(const ProgramContext& program, bool enabled) {
  TrayMenuItem(program.State, "RefreshNow").Enabled = enabled;
  TrayMenuChanged(program);
}

void TrayMenuChanged(const ProgramContext& program) {
  program.Host.Tray.MenuChanged(program.State.TrayMenu);
}

void ClearAccountsMenu(const ProgramContext& program) {
  RemoveFirstItems(AccountsMenu(program.State));
}

void ClearOpenAccountMenu(const ProgramContext& program) {
  RemoveFirstItems(OpenAccountMenu(program.State));
}

void FillOpenAccountMenu(const ProgramContext& program) {
  Menu& menu = OpenAccountMenu(program.State);
  int command = kOpenAccountCommand;
  for (const std::string& account : program.State.Accounts) {
    MenuItem item = Item("", account);
    item.Command = command++;
    menu.push_back(std::move(item));
  }
}

}  // namespace quillbox

// The tray menu as a value in AppState.
#pragma once

#include <string_view>

#include "platform/tray.h"
#include "state/program_context.h"

namespace quillbox {

// The menu with its two empty submenus in place.
void BuildTraySubmenus(const ProgramContext& program);

// The submenu "Accounts", of statistics.
Menu& AccountsMenu(AppState& state);

// The submenu "Open AdSense Account".
Menu& OpenAccountMenu(AppState& state);

// The item of that fixed name. It must exist.
MenuItem& TrayMenuItem(AppState& state, std::string_view name);

// Refresh Now can be chosen, or is greyed.
void EnableRefreshNow(const ProgramContext& program, bool enabled);

// Tells the host of the menu as it is now.
void TrayMenuChanged(const ProgramContext& program);

// Each removes at most 201 items.
void ClearAccountsMenu(const ProgramContext& program);
void ClearOpenAccountMenu(const ProgramContext& program);

// The first command number of OpenAccountMenu; the account's index is added to it.
inline constexpr int kOpenAccountCommand = 500;

// Appends an item for each account.
void FillOpenAccountMenu(const ProgramContext& program);

}  // namespace quillbox

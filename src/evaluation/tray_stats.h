// The stored statistics in the tray: the tooltip's text and the statistics menus.
#pragma once

#include <string>

#include "state/program_context.h"

namespace quillbox {

// Puts the account's text into the tooltip if a record is stored for it.
void UpdateTrayStats(const ProgramContext& program, const std::string& account);

// Fills the emptied "Accounts" submenu with one popup of statistics for each account.
void BuildAccountStatsMenus(const ProgramContext& program);

// Brings both submenus of accounts up to date.
void RebuildAccountMenus(const ProgramContext& program);

}  // namespace quillbox

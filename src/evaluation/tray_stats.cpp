#include "evaluation/tray_stats.h"

#include "evaluation/stats_text.h"
#include "platform/timing.h"
#include "tray/tray_icon.h"
#include "tray/tray_menu.h"

namespace quillbox {

void UpdateTrayStats(const ProgramContext& program, const std::string& account) {
  const StatsSource source{program.Store, program.State.Accounts, program.Region,
                           program.Host.Time.LocalTime()};
  const std::optional<std::string> text = TooltipStatsText(source, account);
  if (text) SetTooltipText(program, *text);
}

void BuildAccountStatsMenus(const ProgramContext& program) {
  const std::vector<std::string>& accounts = program.State.Accounts;
  InsertStatsPopups(AccountsMenu(program.State), accounts, StoredRecords(program.Store, accounts),
                    program.Region);
}

void RebuildAccountMenus(const ProgramContext& program) {
  ClearAccountsMenu(program);
  ClearOpenAccountMenu(program);
  BuildAccountStatsMenus(program);
  FillOpenAccountMenu(program);
  TrayMenuChanged(program);
}

}  // namespace quillbox

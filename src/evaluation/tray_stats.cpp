#include "evaluation/tray_stats.h"

#include <chrono>
#include <vector>

#include "evaluation/date_text.h"
#include "evaluation/stats_text.h"
#include "platform/clock.h"
#include "tray/tray_icon.h"
#include "tray/tray_menu.h"

namespace quillbox {
namespace {

std::string ReadRecord(const ProgramContext& program, const std::string& account) {
  const AccountKeys keys(account);
  return program.Store.ReadSetting(keys.Stats());
}

}  // namespace

std::string BuildStatsText(const ProgramContext& program, std::string& account) {
  if (account.empty()) account = program.Store.ReadSetting(kPrimaryAccount);
  if (account.empty()) return {};
  const std::string values = program.Store.ReadSetting(kTooltipValues);
  const int year = YearOf(program.Host.Time.LocalTime());
  if (program.Store.ReadSetting(kDisplayAllStats) != kTrue) {
    return OneAccountStatsText(values, ReadRecord(program, account), year, program.Region);
  }
  std::vector<std::string> records;
  for (const std::string& name : program.State.Accounts) {
    records.push_back(ReadRecord(program, name));
  }
  return AllAccountsStatsText(values, records, year, program.Region);
}

void UpdateTrayStats(const ProgramContext& program, const std::string& account) {
  if (ReadRecord(program, account).empty()) return;
  std::string name = account;
  SetTooltipText(program, BuildStatsText(program, name));
}

void BuildAccountStatsMenus(const ProgramContext& program) {
  for (const std::string& account : program.State.Accounts) {
    InsertStatsPopup(AccountsMenu(program.State), account, ReadRecord(program, account),
                     program.Region);
  }
}

void RebuildAccountMenus(const ProgramContext& program) {
  ClearAccountsMenu(program);
  ClearOpenAccountMenu(program);
  BuildAccountStatsMenus(program);
  FillOpenAccountMenu(program);
  TrayMenuChanged(program);
}

}  // namespace quillbox

// The statistics text of the tooltip and the balloon, and the popups of the statistics menu: from
// records, and from what is stored.
#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/settings_store.h"
#include "platform/tray.h"
#include "region/regional_settings.h"

namespace quillbox {

// `values` holds the letters A to M of the wanted lines, in any order and case. Records are stored
// ones; an empty one stands for an account that has none. Lines end in CR LF, but the last; a line
// whose value fails is left out. `currentYear` completes dates without a year.

// The lines of one account.
std::string OneAccountStatsText(std::string_view values, std::string_view record, int currentYear,
                                const RegionalSettings& region);

// Sums and means over all accounts; the date and the time of the last account.
std::string AllAccountsStatsText(std::string_view values, std::span<const std::string> records,
                                 int currentYear, const RegionalSettings& region);

// The captions of an account's popup, from the top: the stored date and the lines of all values but
// the date. None unless the record has exactly 13 fields.
std::vector<std::string> StatsPopupItems(std::string_view record, const RegionalSettings& region);

// Puts a popup for each account into the menu: the first at the top, if the menu is empty, and each
// of the others at the second place, so that they stand in reverse order. `records` has an entry
// for each of `accounts`.
void InsertStatsPopups(Menu& menu, std::span<const std::string> accounts,
                       std::span<const std::string> records, const RegionalSettings& region);

// What the texts of stored statistics are made of.
struct StatsSource {
  const SettingsStore& Store;
  const std::vector<std::string>& Accounts;
  const RegionalSettings& Region;
  std::chrono::local_seconds Now;  // its year completes dates without one
};

// The stored record of each account; empty where there is none.
std::vector<std::string> StoredRecords(const SettingsStore& store,
                                       std::span<const std::string> accounts);

// The tooltip's text for the account; an empty name is replaced, in the caller's variable too, by
// the primary account. Empty when there is still no name.
std::string BuildStatsText(const StatsSource& source, std::string& account);

// The same for the tooltip; nothing when no record is stored for the account.
std::optional<std::string> TooltipStatsText(const StatsSource& source, const std::string& account);

}  // namespace quillbox

// The statistics text of the tooltip and the balloon, and the items of the statistics menus.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/menu.h"
#include "platform/regional_settings.h"

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

// Puts an account's popup into the menu, at the second place unless it is the first.
void InsertStatsPopup(Menu& menu, const std::string& account, std::string_view record,
                      const RegionalSettings& region);

// One popup for each account, as they stand in the menu: the first account's on top, those of the
// others below it in reverse order. `records` has an entry for each of `accounts`.
Menu AccountStatsPopups(std::span<const std::string> accounts, std::span<const std::string> records,
                        const RegionalSettings& region);

}  // namespace quillbox

// Which figures have changed since the stored record, and whether that is news at all.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "evaluation/account_stats.h"
#include "region/regional_settings.h"

namespace quillbox {

// In the order of the tests, and of SoundFiles in AppState.
enum class Figure : std::size_t { kImpressions, kClicks, kRate, kCpm, kEarnings };
inline constexpr std::size_t kFigures = 5;

class ChangeSet {
 public:
  void Add(Figure figure) { changed_[static_cast<std::size_t>(figure)] = true; }
  bool Has(Figure figure) const { return changed_[static_cast<std::size_t>(figure)]; }
  bool Empty() const { return changed_ == std::array<bool, kFigures>{}; }
  bool operator==(const ChangeSet&) const = default;

 private:
  std::array<bool, kFigures> changed_{};
};

// Whether the evaluation goes on: the date is new, or impressions or clicks rose above the stored
// ones. `lastDate` is the last report date that raised a change.
bool GatePasses(const AccountStats& fresh, const Cells& stored, std::string_view lastDate,
                const RegionalSettings& region);

// On a new date a figure has changed when it is above 0 (impressions: when they differ from the
// stored ones), on the same date when it rose above the stored one. A figure that can't be
// compared, on either kind of date also one that has no stored field, has changed.
ChangeSet FindChanges(const AccountStats& fresh, const Cells& stored, std::string_view lastDate,
                      const RegionalSettings& region);

// Whether the figure that the setting ShowBalloonWhen names is among the changes.
bool BalloonNamed(std::string_view showBalloonWhen, const ChangeSet& changes);

}  // namespace quillbox

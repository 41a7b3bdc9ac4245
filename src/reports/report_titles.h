// The 21 reports that a person can ask for.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace quillbox {

enum class ReportFamily { kAd, kChannel, kSearch, kReferrals };

struct ReportTitle {
  std::string_view Text;
  ReportFamily Family;
  std::size_t Cell;  // of a day's line, the one that the graph shows; counted from 0
  bool Normalized;   // that cell passes through NormalizeReportCell

  // A line for each day and channel, instead of one for each day.
  constexpr bool OfChannels() const { return Family == ReportFamily::kChannel; }
  // The service can tell the data of this report by ad unit or by page.
  constexpr bool HasUnit() const {
    return Family == ReportFamily::kAd || Family == ReportFamily::kChannel;
  }
};

// In the order of the list.
std::span<const ReportTitle> ReportTitles();

// Null for any other text.
const ReportTitle* FindReportTitle(std::string_view text);

}  // namespace quillbox

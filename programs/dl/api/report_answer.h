// The answer to `reports:generate`, read.
#pragma once

#include <chrono>
#include <compare>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "api/wanted_report.h"

namespace quillbox {

struct ReportFigures {
  double Count = 0;  // impressions, page views or queries
  double Clicks = 0;
  double Ctr = 0;       // a fraction
  double Rpm = 0;       // in the account's currency
  double Earnings = 0;  // likewise
};

// Counts and amounts are added, rates worked out.
void AddFigures(ReportFigures& sums, const ReportFigures& more);

struct ReportChannel {
  std::string Name;  // UTF-8; empty in reports without channels
  std::string Id;    // tells channels of one name apart

  auto operator<=>(const ReportChannel&) const = default;
};

struct ReportLine {
  std::chrono::sys_days Day;
  ReportChannel Channel;
  ReportFigures Figures;
};

struct ReportAnswer {
  DayRange Days;                  // what the range meant to the account
  std::vector<ReportLine> Lines;  // by day; days and channels without figures have none
  ReportFigures Totals;           // worked out from the lines if the answer has none
  ReportFigures Averages;
  std::size_t Matched = 0;            // lines that the service has; an answer can be cut short
  std::string Currency;               // "USD"; empty when the answer doesn't say
  std::vector<std::string> Warnings;  // UTF-8, in English

  bool IsWhole() const { return Matched <= Lines.size(); }
};

// Nothing when the text isn't such an answer to the question for `report`, when it holds none of
// the lines that the service has, or when a line lies outside of its days or comes twice.
std::optional<ReportAnswer> ReadReportAnswer(std::string_view json, const WantedReport& report);

// The days alone, of a short answer to any query.
std::optional<DayRange> ReadDays(std::string_view json);

}  // namespace quillbox

// Reports to evaluate: small ones, written cell by cell.
#pragma once

#include <string>
#include <vector>

#include "evaluation/account_evaluation.h"

namespace quillbox {

// "a\tb\n"
inline std::string ReportLine(const std::vector<std::string>& cells) {
  std::string line;
  for (const std::string& cell : cells) line += (line.empty() ? "" : "\t") + cell;
  return line + '\n';
}

// A report of a heading, one day and two summary lines.
inline std::string ReportOf(const std::vector<std::string>& day,
                            const std::vector<std::string>& month) {
  return "Date\tImpressions\tClicks\n" + ReportLine(day) + ReportLine(month) + "Averages\t1\t2\n";
}

inline std::string ContentReport(const std::string& date, const std::string& impressions,
                                 const std::string& clicks, const std::string& ctr,
                                 const std::string& ecpm, const std::string& earnings) {
  return ReportOf({date, impressions, clicks, ctr, ecpm, earnings},
                  {"Totals", "3000", "30", "1.00%", "2.00", "6.00"});
}

// Clicks 10, CTR 1%, eCPM 2.00, earnings 2.00.
inline std::string ContentReport(const std::string& date, const std::string& impressions) {
  return ContentReport(date, impressions, "10", "1.00%", "2.00", "2.00");
}

inline EvaluationInput ContentInput(std::string report) {
  EvaluationInput input;
  input.DataToDownload = "AdSense for Content";
  input.Content = std::move(report);
  input.Now = std::chrono::local_days(std::chrono::year(2007) / 1 / 31) + std::chrono::hours(9) +
              std::chrono::minutes(5);
  return input;
}

// The worked example of three merged reports.
inline EvaluationInput AllInput() {
  EvaluationInput input =
      ContentInput(ReportOf({"1/31/2007", "1000", "10", "1.00%", "2.00", "2.00"},
                            {"Totals", "3000", "30", "1.00%", "2.00", "6.00"}));
  input.DataToDownload = "All";
  input.Search = ReportOf({"1/31/2007", "500", "5", "1.00%", "4.00", "2.00"},
                          {"Totals", "1000", "5", "0.50%", "1.00", "1.25"});
  input.Referral = ReportOf({"1/31/2007", "0", "0", "0.00%", "0", "0.00", "0.00"},
                            {"Totals", "1000", "5", "0.50%", "2", "0.25", "0.25"});
  return input;
}

}  // namespace quillbox

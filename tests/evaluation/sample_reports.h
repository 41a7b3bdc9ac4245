// Reports to evaluate: small ones, written cell by cell.
#pragma once

#include <string>

#include "evaluation/account_evaluation.h"

namespace quillbox {

// A report of a heading, one day and two summary lines.
inline std::string ContentReport(const std::string& date, const std::string& impressions,
                                 const std::string& clicks = "10", const std::string& ctr = "1.00%",
                                 const std::string& ecpm = "2.00",
                                 const std::string& earnings = "2.00") {
  return "Date\tImpressions\tClicks\n" + date + '\t' + impressions + '\t' + clicks + '\t' + ctr +
         '\t' + ecpm + '\t' + earnings + "\nTotals\t3000\t30\t1.00%\t2.00\t6.00\nAverages\t1\t2\n";
}

inline EvaluationInput ContentInput(std::string report) {
  EvaluationInput input;
  input.DataToDownload = "AdSense for Content";
  input.Content = std::move(report);
  input.Now = std::chrono::local_days(std::chrono::year(2007) / 1 / 31) + std::chrono::hours(9) +
              std::chrono::minutes(5);
  return input;
}

}  // namespace quillbox

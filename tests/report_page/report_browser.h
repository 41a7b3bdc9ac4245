// A report page in a real engine: written as the program writes it, asked by JavaScript.
#pragma once

#include <QTemporaryDir>
#include <QWebEngineView>
#include <string>

#include "reports/report_data.h"

namespace quillbox {

// Titles whose values are plain numbers, amounts and percentages.
inline constexpr const char *kClicks = "Ad Performance - Clicks",
                            *kEarnings = "Ad Performance - Earnings",
                            *kRate = "Ad Performance - CTR";

// "Monday<BR>1/1/07,..." for so many days.
std::string DayLabels(int days);

// So many days of so many values each; the value at `day` and `channel` is 1 + (7 * day + channel)
// % 50.
std::string ManyValues(int days, int channels);

// "Channel 1^Channel 2^..."
std::string ManyChannels(int channels);

class ReportBrowser {
 public:
  ReportBrowser(int width, int height);

  // Returns when the page has loaded and was laid out.
  void Show(const ReportData& data, const char* title = kClicks, const char* period = ".",
            const char* comma = ",");

  // Returns when the page was laid out for the new size.
  void Resize(int width, int height);

  // The value of a JavaScript expression as text. The functions of kQueries are at hand.
  std::string Ask(const std::string& expression);

  // The cells of the table that programs for the blind are shown, row by row, with blanks between.
  std::string CellsReadOut();

 private:
  void WaitForLayout();

  QTemporaryDir folder_;
  QWebEngineView view_;
};

}  // namespace quillbox

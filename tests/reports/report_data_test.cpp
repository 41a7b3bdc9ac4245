#include "reports/report_data.h"

#include <gtest/gtest.h>

#include "region/regional_settings.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

constexpr const char* kClicks = "Ad Performance - Clicks";
constexpr const char* kEarnings = "Ad Performance - Earnings";
constexpr const char* kChannelClicks = "Ad Channel Performance - Clicks";

std::optional<ReportData> Built(const std::string& text, const char* title) {
  return BuildReportData(text, *FindReportTitle(title), *BuiltInRegion("en-US"), 2007);
}

// As one text, for a failure's message.
std::string Shown(const std::optional<ReportData>& data) {
  if (!data) return "no data";
  return data->Labels + " | " + data->Values + " | " + data->Channels;
}

std::string Report(const std::string& days) {
  return "heading\n" + days + "totals\naverages\n";
}

// One line for all families: each finds its own cell.
TEST(ReportData, PutsTheTitlesCellOnTheGraph) {
  struct Case {
    const char *Family, *Figures, *Values;
  };
  constexpr Case kCases[] = {{"Ad Performance - ", "Impressions Clicks CTR eCPM Earnings",
                              "1.111,11 2,222.22 33.3 44.40 5,555.50"},
                             {"Ad Channel Performance - ", "Impressions Clicks CTR eCPM Earnings",
                              "2,222.22 33.3% 44.40 5,555.50 ,1.10"},
                             {"Search Performance - ", "Queries Clicks CTR eCPM Earnings",
                              "1.111,11 2,222.22 33.3 44.40 5,555.50"},
                             {"Referrals - ", "Impressions Clicks CTR Sign-ups eCPM Earnings",
                              "1.111,11 2,222.22 33.3 44.40 5,555.50 ,1.10"}};
  const std::string report =
      Report("1/1/2007\t1.111,11\t2,222.22\t33.3%\t44,40\t5.555,50\t-1.10\n");
  for (const Case& c : kCases) {
    const auto figures = SplitText(c.Figures, " "), values = SplitText(c.Values, " ");
    for (std::size_t i = 0; i < figures.size(); ++i) {
      const std::string title = c.Family + figures[i];
      EXPECT_EQ(Built(report, title.c_str())->Values, values[i]) << title;
    }
  }
}

TEST(ReportData, WhatTheTextSaysIsMeant) {
  struct Case {
    const char *What, *Title;
    std::string Text;
    const char* Shown;
  };
  const Case kCases[] = {
      {"quotes go", kEarnings, Report("\"1/1/2007\"\t1\t1\t1%\t1\t\"$1.10\"\n"),
       "Monday<BR>1/1/07 | ,1.10 | "},
      {"a value for each day", kClicks, Report("1/1/2007\t1\t5\n1/2/2007\t1\t6\n"),
       "Monday<BR>1/1/07,Tuesday<BR>1/2/07 | 5:6 | "},
      {"a carriage return stays in its cell", kClicks, Report("1/1/2007\t1\t5\r\n"),
       "Monday<BR>1/1/07 | 5\r | "},
      {"an empty first value has no separator behind it", kClicks,
       Report("1/1/2007\t1\n1/2/2007\t1\t6\n1/3/2007\n1/4/2007\t1\t8\n"),
       "Monday<BR>1/1/07,Tuesday<BR>1/2/07,Wednesday<BR>1/3/07,Thursday<BR>1/4/07 | 6::8 | "},
      {"nor has an empty first label", kClicks, Report("Mon\t1\t5\n1/2/2007\t1\t6\nTue\t\t7\n"),
       "Tuesday<BR>1/2/07, | 5:6:7 | "},
      {"the last day is lost without the last line end", kClicks,
       "h\n1/1/2007\t1\t5\n1/2/2007\t1\t6\nt\na", "Monday<BR>1/1/07 | 5 | "},
      {"and the only one, too", kClicks, "heading\n1/1/2007\t1\t5\nt\na", "no data"},
      {"a web page's head goes", kClicks,
       "<html>\n\n\n<body>\n1/1/2007\t1\t5\n1/2/2007\t1\t6\nt\n<body>\n",
       "Monday<BR>1/1/07,Tuesday<BR>1/2/07 | 5:6 | "},
      {"nine characters", kClicks, "123\"45678\"9", "no data"},
      {"nine behind the page's head", kClicks, "0123456789<BODY>3456", "no data"},
      {"nothing", kClicks, "", "no data"},
      {"ten characters without a line feed are one line", kClicks, "1/1/2007\tx",
       "Monday<BR>1/1/07 |  | "},
      {"two line feeds leave nothing to cut", kClicks, "1/1/2007\t1\t5\n1/2/2007\t1\t6\n",
       "Monday<BR>1/1/07,Tuesday<BR>1/2/07, | 5:6: | "},
      {"no line between heading and summaries", kClicks, Report(""), "no data"},
      {"a count of two digits is too short to be normalised", "Referrals - Sign-ups",
       Report("1/1/2007\t\t\t\t42\n1/2/2007\t\t\t\t123\n"),
       "Monday<BR>1/1/07,Tuesday<BR>1/2/07 | 123 | "},
      {"an empty line between them", kClicks, Report("\n"), " |  | "},
      {"a line of a date alone", kClicks, Report("1/1/2007\n"), "Monday<BR>1/1/07 |  | "},
      {"a date without a year is of this one", kClicks, Report("1/2\t1\t6\n"),
       "Tuesday<BR>1/2/07 | 6 | "},
      {"channels", "Ad Channel Performance - Earnings",
       Report("1/1/2007\tRed\t1\t1\t1\t1\t1.10\n1/1/2007\tBlue\t1\t1\t1\t1\t0.40\n"
              "1/2/2007\tRed\t1\t1\t1\t1\t2.00\n1/2/2007\tBlue\t1\t1\t1\t1\t0.05\n"),
       "Monday<BR>1/1/07,Tuesday<BR>1/2/07 | 1.10;0.40:2.00;0.05 | Red^Blue"},
      {"a date that comes back starts a new group; names are told apart by case", kChannelClicks,
       Report("1/1/2007\tRed\t1\t1\n1/2/2007\tred\t1\t2\n1/1/2007\tRed\t1\t3\n"),
       "Monday<BR>1/1/07,Tuesday<BR>1/2/07,Monday<BR>1/1/07 | 1:2:3 | Red^red"},
      {"one day in two notations is two days", kChannelClicks,
       Report("1/1/2007\tRed\t1\t1\n01/01/2007\tRed\t1\t2\n"),
       "Monday<BR>1/1/07,Monday<BR>1/1/07 | 1:2 | Red"},
      {"empty values in groups", kChannelClicks,
       Report("1/1/2007\tA\n1/1/2007\tB\t1\t2\n1/2/2007\n1/2/2007\tA\t1\t4\n"),
       "Monday<BR>1/1/07,Tuesday<BR>1/2/07 | ;2:;4 | A^B"},
      {"an empty line starts a group and leaves the last date", kChannelClicks,
       Report("1/1/2007\tA\t1\t1\n\n1/1/2007\tA\t1\t3\n"), "Monday<BR>1/1/07, | 1:;3 | A"},
      {"a name with the list's mark is known when its parts stand in a row", kChannelClicks,
       Report("1/1/2007\tA\n1/1/2007\tB\n1/1/2007\tA^B\n1/1/2007\tA^B^D\n1/1/2007\tB^A\n"
              "1/1/2007\tD\n1/1/2007\tB^D^A\n"),
       "Monday<BR>1/1/07 | ;;;;;; | A^B^A^B^D^B^D^A"},
      {"the empty name alone", kChannelClicks, Report("1/1/2007\t\t1\t1\n"),
       "Monday<BR>1/1/07 | 1 | "},
  };
  for (const Case& c : kCases) EXPECT_EQ(Shown(Built(c.Text, c.Title)), c.Shown) << c.What;
}

}  // namespace
}  // namespace quillbox

// What a report is asked with, its page, and the files that the page needs beside it.
#include <gmock/gmock.h>

#include <string>

#include "reports/report_page.h"
#include "reports/report_request.h"
#include "simulated/simulated_files.h"

namespace quillbox {
namespace {

TEST(ReportRequest, BecomesTheAgentsCommand) {
  struct Case {
    const char *Title, *Range, *Unit;
    const char *Product, *Rest;  // of the address, before and behind the form of the range
  };
  constexpr Case kCases[] = {
      {"Ad Performance - Clicks", "Last 7 Days", "Individual Ad Unit", "aggregate?product=afc",
       "last7days&unitPref=adunit&outputFormat=TSV_EXCEL"},
      {"Ad Channel Performance - CTR", "This Month", "Page", "aggregate?product=afc",
       "thismonth&unitPref=page&outputFormat=TSV_EXCEL&reportType=channel&allChannels=true"
       "&groupByPref=both"},
      {"Referrals - Sign-ups", "All Time", "Page", "referrals?product=ref",
       "alltime&reportType=property&groupByPref=date&outputFormat=TSV_EXCEL"},
  };
  const ApplicationFolder folder("/programs", "/my data", '/');
  for (const Case& c : kCases) {
    const ReportRequest request = ReportRequestOf(*FindReportTitle(c.Title), c.Range, c.Unit);
    EXPECT_EQ(ReportCommand(request, "a.b", "+|%", "service.test:8443", folder),
              std::string("Email=%61%2E%62&Passwd=%2B|%%#%https://service.test:8443"
                          "/adsense/report/") +
                  c.Product + "&dateRange.dateRangeType=simple&dateRange.simpleDate=" + c.Rest +
                  "|/my data/Report.dat|/my data/Report.log")
        << c.Title;
  }
}

TEST(ReportTitles, SayInTheirTextWhatIsAskedFor) {
  EXPECT_EQ(ReportTitles().size(), 21U);
  for (const ReportTitle& title : ReportTitles()) {
    const auto named = [&](std::string_view word) { return title.Text.find(word) != word.npos; };
    const std::string command = ReportCommand(ReportRequestOf(title, "All Time", "Page"), "", "",
                                              "", ApplicationFolder("", "", '/'));
    const auto asks = [&](std::string_view part) { return command.find(part) != part.npos; };
    EXPECT_EQ(asks("product=afs"), named("Search")) << title.Text;
    EXPECT_EQ(asks("product=ref"), named("Referrals")) << title.Text;
    EXPECT_EQ(asks("reportType=channel"), named("Channel")) << title.Text;
    EXPECT_EQ(title.OfChannels(), named("Channel")) << title.Text;
    EXPECT_EQ(title.HasUnit(), !named("Search") && !named("Referrals")) << title.Text;
    EXPECT_EQ(FindReportTitle(title.Text), &title);
  }
  EXPECT_EQ(FindReportTitle("ad performance - clicks"), nullptr);
}

TEST(ReportPage, IsOneTextByteForByte) {
  EXPECT_EQ(
      BuildReportPage({"Monday<BR>1/1/07,Tuesday<BR>1/2/07", "1.10;0.40:2.00;0.05", "Red^Blue"},
                      "Ad Channel Performance - Earnings", ".", ","),
      R"(<HTML><HEAD><SCRIPT TYPE='text/javascript' SRC='graphs.js'></SCRIPT>)"
      R"(<SCRIPT TYPE='text/javascript' SRC='NiceTitle.js'></SCRIPT>)"
      R"(<LINK REL="stylesheet" HREF="NiceTitleAutoWidth.css" TYPE="text/css"></HEAD>)"
      R"(<BODY STYLE="margin: 1px 1px 1px 1px;"><SCRIPT>)"
      R"(graph = new BAR_GRAPH("vBar");graph.graphBGColor = "white";graph.graphPadding = 0;)"
      R"(graph.barColor = "#C0D0C0,#80D080";graph.barBGColor = "#D0F0D0";)"
      R"(graph.labelColor = "white";graph.labelBGColor = "#333";graph.legendColor = "#00A000";)"
      R"(graph.legendBGColor = "#D0F0D0";graph.showValues = 1;)"
      R"(graph.labels = "Monday<BR>1/1/07,Tuesday<BR>1/2/07";)"
      R"(graph.values = "1.10;0.40:2.00;0.05";graph.channels = "Red^Blue";)"
      R"(graph.periodCharacter = ".";graph.commaCharacter = ",";graph.valueHeader = "$";)"
      R"(document.write(graph.create());</SCRIPT></BODY></HTML>)");
}

TEST(ReportPage, HasWhatItsTitleNames) {
  struct Case {
    const char *Title, *Mark;
  };
  constexpr Case kCases[] = {{"Ad Performance - Clicks", ""},
                             {"Referrals - CTR", "graph.valueFooter = \"%\";"},
                             {"Search Performance - eCPM", "graph.valueHeader = \"$\";"},
                             {"Ad Channel Performance - CTR", "graph.valueFooter = \"%\";"}};
  for (const Case& c : kCases) {
    EXPECT_THAT(BuildReportPage({"L", "V", ""}, c.Title, ",", "0"),
                testing::HasSubstr("graph.values = \"V\";graph.periodCharacter = \",\";"
                                   "graph.commaCharacter = \"0\";" +
                                   std::string(c.Mark) + "document.write("))
        << c.Title;
  }
}

TEST(PageFiles, AreCopiedWhereTheyAreMissingOrDiffer) {
  SimulatedFiles files(
      {{"/p/graphs.js", "new"}, {"/d/graphs.js", "old"}, {"/p/NiceTitle.js", "t"}});
  PutPageFiles(files, ApplicationFolder("/p", "/d", '/'));
  EXPECT_THAT(files.All(), testing::Contains(testing::Pair("/d/graphs.js", "new")));
  EXPECT_THAT(files.All(), testing::Contains(testing::Pair("/d/NiceTitle.js", "t")));
  EXPECT_EQ(files.All().size(), 4U) << "the style sheet is nowhere";

  const int steps = files.Steps();
  PutPageFiles(files, ApplicationFolder("/p", "/d", '/'));
  EXPECT_EQ(files.Steps(), steps) << "what is the same is not written again";
  PutPageFiles(files, ApplicationFolder("/p", "/p", '/'));
  EXPECT_EQ(files.Steps(), steps) << "nor where both folders are one";
}

}  // namespace
}  // namespace quillbox

// The page of a report, and the files that it needs beside it.
#include "reports/report_page.h"

#include <gmock/gmock.h>

#include "reports/page_files.h"
#include "simulated/simulated_files.h"

namespace quillbox {
namespace {

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
    const char *Title, *Channels, *Between;
  };
  constexpr Case kCases[] = {
      {"Ad Performance - Clicks", "", ""},
      {"Referrals - CTR", "", "graph.valueFooter = \"%\";"},
      {"Search Performance - eCPM", "", "graph.valueHeader = \"$\";"},
      {"Ad Performance - Earnings", "", "graph.valueHeader = \"$\";"},
      {"Ad Channel Performance - CTR", "A", "graph.valueFooter = \"%\";"},
  };
  for (const Case& c : kCases) {
    const std::string page = BuildReportPage({"L", "V", c.Channels}, c.Title, ",", "0");
    const std::string channels =
        *c.Channels == '\0' ? "" : std::string("graph.channels = \"") + c.Channels + "\";";
    EXPECT_NE(page.find("showValues = 1;graph.labels = \"L\";graph.values = \"V\";" + channels +
                        "graph.periodCharacter = \",\";graph.commaCharacter = \"0\";" + c.Between +
                        "document.write("),
              page.npos)
        << c.Title << ": " << page;
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
}

TEST(PageFiles, StayWhereBothFoldersAreOne) {
  SimulatedFiles files({{"/p/graphs.js", "new"}});
  PutPageFiles(files, ApplicationFolder("/p", "/p", '/'));
  EXPECT_EQ(files.Steps(), 0);
}

}  // namespace
}  // namespace quillbox

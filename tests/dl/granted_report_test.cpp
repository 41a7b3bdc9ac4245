// `dl` with a grant in the place of the password, against the demo's current API.
#include <gmock/gmock.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <sstream>

#include "dl/support/grants.h"

namespace quillbox {
namespace {

// Cells of a report's lines, in order.
using Lines = std::vector<std::vector<std::string>>;

Lines LinesOf(const std::string& report) {
  Lines lines;
  std::istringstream text(report);
  for (std::string line; std::getline(text, line);) {
    lines.emplace_back();
    std::istringstream cells(line);
    for (std::string cell; std::getline(cells, cell, '\t');) lines.back().push_back(cell);
  }
  return lines;
}

// Days and sums; each service rounds rates, and so averages, in its own way.
Lines WithoutRates(const std::string& report, bool sums) {
  Lines lines = LinesOf(report);
  for (auto& cells : lines) {
    if (cells.size() >= 6) cells.erase(cells.end() - 3, cells.end() - 1);
  }
  std::sort(lines.begin() + 1, lines.end() - 2);  // channels come in another order
  lines.resize(lines.size() - (sums ? 1 : 3));
  lines.erase(lines.begin());
  return lines;
}

class GrantedReport : public testing::Test {
 protected:
  // Half of the day's figures are there, so that today has a line.
  // The start of "all time" lies too long ago.
  DemoService service_{{"--speed", "100000", "--history", "1095"}};
  const GrantHome home_;
  const DlRun run_, other_;
};

TEST_F(GrantedReport, IsThatOfThePassword) {
  const std::string kAggregate = "/adsense/report/aggregate?product=";
  for (const std::string& path :
       {std::string(kContentReport), kAggregate + "afs&dateRange.simpleDate=lastmonth",
        kAggregate + "afc&dateRange.simpleDate=lastmonth&reportType=channel"}) {
    ASSERT_EQ(run_.CodeOf(Granted(service_, home_, path)), "0") << path;
    ASSERT_EQ(other_.CodeOf(service_.Signed(path)), "0") << path;
    const bool isWhole = path != kContentReport;  // else today grows, and with it the sum
    EXPECT_EQ(WithoutRates(*run_.Data(), isWhole), WithoutRates(*other_.Data(), isWhole)) << path;
    EXPECT_NE(LinesOf(*run_.Data()).back().end()[-5], "0") << "impressions on average, " << path;
  }
}

TEST_F(GrantedReport, HasTheLinesOfItsRange) {
  struct Case {
    const char* path;
    std::size_t fewest, most, cells;
  };
  const Case kCases[] = {
      {"aggregate?product=afc&dateRange.simpleDate=last7days", 7, 7, 6},
      {"aggregate?product=afs&dateRange.simpleDate=lastmonth", 28, 31, 6},
      {"aggregate?product=afc&dateRange.simpleDate=alltime", 119, 121, 6},
      {"referrals?product=ref&dateRange.simpleDate=lastmonth", 28, 31, 7},
      {"aggregate?product=afc&dateRange.simpleDate=last7days&reportType=channel", 21, 21, 7}};
  for (const Case& c : kCases) {
    const std::string path = std::string("/adsense/report/") + c.path;
    for (const DlStart& start : {Granted(service_, home_, path), service_.Signed(path)}) {
      ASSERT_EQ(run_.CodeOf(start), "0") << start.Request;
      const Lines lines = LinesOf(*run_.Data());
      EXPECT_GE(lines.size(), c.fewest + 3) << start.Request;
      EXPECT_LE(lines.size(), c.most + 3) << start.Request;
      EXPECT_THAT(lines, testing::Each(testing::SizeIs(c.cells))) << start.Request;
      EXPECT_TRUE(run_.Data()->ends_with('\n')) << start.Request;
    }
  }
}

std::ptrdiff_t Questions(DemoService& service) {
  service.Process().End();
  const std::string said = service.Process().ReadAll();
  std::ptrdiff_t count = 0;
  for (std::size_t at = said.find("/v2"); at < said.size(); at = said.find("/v2", at + 1)) ++count;
  return count;
}

TEST_F(GrantedReport, IsWholeHoweverLittleOneAnswerHolds) {
  const std::string kByChannel = "product=afc&dateRange.simpleDate=lastmonth&reportType=channel";
  struct Case {
    std::string query;
    const char *limit, *code;
    std::ptrdiff_t fewest, most;  // questions
    bool sums = true;             // else today grows
  };
  const Case kCases[] = {{kByChannel, "100", "0", 2, 2},
                         {kByChannel, "50", "0", 6, 6},
                         {kByChannel, "3", "0", 30, 33},
                         {kByChannel, "2", "2", 3, 3},  // a day has three lines
                         // The figures are all in the last days of the range.
                         {"product=afs&dateRange.simpleDate=alltime", "40", "0", 16, 40, false},
                         {"product=afs&dateRange.simpleDate=alltime", "1", "2", 2, 2}};
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.query + ", " + c.limit);
    const std::string path = "/adsense/report/aggregate?" + c.query;
    DemoService cutting({"--speed", "100000", "--row-limit", c.limit});
    ASSERT_EQ(run_.CodeOf(Granted(cutting, home_, path)), c.code);
    EXPECT_THAT(Questions(cutting), testing::AllOf(testing::Ge(c.fewest), testing::Le(c.most)));
    if (*c.code != '0') continue;
    ASSERT_EQ(other_.CodeOf(Granted(service_, home_, path)), "0");
    EXPECT_EQ(WithoutRates(*run_.Data(), c.sums), WithoutRates(*other_.Data(), c.sums));
  }
}

TEST_F(GrantedReport, NeedsAWholeFileThatIsItsOwnersAlone) {
  struct Case {
    const char* name;
    void (*spoil)(const GrantHome& home, const char* path);
  };
  const Case kCases[] = {
      {"missing", [](const GrantHome&, const char* path) { ::unlink(path); }},
      {"open to the group", [](const GrantHome&, const char* path) { ::chmod(path, 0640); }},
      {"open to all", [](const GrantHome&, const char* path) { ::chmod(path, 0604); }},
      {"a link",
       [](const GrantHome& home, const char* path) {
         std::filesystem::rename(path, home.GrantPath("moved"));
         std::filesystem::create_symlink(home.GrantPath("moved"), path);
       }},
      {"half",
       [](const GrantHome& home, const char*) { home.Put("{\"refresh_token\": \"a\", "); }}};
  for (const Case& c : kCases) {
    const std::string name = c.name;
    // Wine shows neither the group's rights nor that a file is a link.
    if (InWine() && (name == "open to the group" || name == "a link")) continue;
    const GrantHome home;
    c.spoil(home, home.GrantPath().c_str());
    EXPECT_EQ(run_.CodeOf(Granted(service_, home)), "3") << c.name;
  }
}

TEST_F(GrantedReport, IsNotAskedForAtOtherAddresses) {
  DlStart start = Granted(service_, home_, "/versionqb.txt");
  EXPECT_EQ(run_.CodeOf(start), "1");
  start.Request = SignedIn(kEmail, kGrantName, std::string("http://old.invalid") + kContentReport);
  EXPECT_EQ(run_.CodeOf(start), "4");
  service_.Process().End();
  EXPECT_EQ(service_.Process().ReadLine(), "") << "nothing was asked";
}

}  // namespace
}  // namespace quillbox

// What answers of the reporting service become: legacy reports, result codes, accounts, tokens.
#include <gtest/gtest.h>

#include "api/publisher_accounts.h"
#include "api/report_parts.h"
#include "api/service_verdict.h"
#include "api/tabbed_report.h"
#include "api/tokens.h"

namespace quillbox {
namespace {

constexpr const char* kHeaders =
    R"("headers":[{"name":"DATE","type":"DIMENSION"},{"name":"IMPRESSIONS"},{"name":"CLICKS"},)"
    R"({"name":"IMPRESSIONS_CTR"},{"name":"IMPRESSIONS_RPM","currencyCode":"EUR"},)"
    R"({"name":"ESTIMATED_EARNINGS","type":"METRIC_CURRENCY","currencyCode":"EUR"}])";
constexpr const char* kChannelHeaders =
    R"("headers":[{"name":"DATE"},{"name":"CUSTOM_CHANNEL_NAME"},{"name":"CUSTOM_CHANNEL_ID"},)"
    R"({"name":"IMPRESSIONS"},{"name":"CLICKS"},{"name":"IMPRESSIONS_CTR"},{"name":"IMPRESSIONS_RPM"},)"
    R"({"name":"ESTIMATED_EARNINGS"}])";

// Cells, a blank between two; "_" is a cell without a value.
std::string Row(const std::string& cells) {
  std::string row;
  for (std::size_t at = 0; at <= cells.size();) {
    const std::size_t end = std::min(cells.find(' ', at), cells.size());
    const std::string cell = cells.substr(at, end - at);
    row += row.empty() ? "" : ",";
    row += cell == "_" ? "{}" : R"({"value":")" + cell + R"("})";
    at = end + 1;
  }
  return R"({"cells":[)" + row + "]}";
}

std::string Sums(const std::string& totals) {
  return R"("totals":)" + Row(totals) + R"(,"averages":)" + Row(totals);
}

// From the first of March 2026 on.
std::string Days(int last) {
  return R"("startDate":{"year":2026,"month":3,"day":1},"endDate":{"year":2026,"month":3,"day":)" +
         std::to_string(last) + "}";
}

std::string Object(std::initializer_list<std::string> members) {
  std::string object;
  for (const std::string& member : members) object += (object.empty() ? "{" : ",") + member;
  return object + "}";
}

std::string Rows(std::initializer_list<std::string> rows) {
  std::string list;
  for (const std::string& row : rows) list += (list.empty() ? "" : ",") + Row(row);
  return R"("rows":[)" + list + "]";
}

std::string Table(const WantedReport& report, const std::string& json) {
  const auto answer = ReadReportAnswer(json, report);
  if (!answer) return "no answer";
  return TabbedReport(report, *answer, 10'000).value_or("too long");
}

constexpr const char* kHeading = "Date\tImpressions\tClicks\tCTR\teCPM\tEarnings\n";

TEST(ApiAnswer, BecomesAReportOfOld) {
  const std::string kRest = "\t0\t0.00%\t0.00\t0.00\n", kZeros = "\t0" + kRest;
  const std::string kAllZeros = "Totals" + kZeros + "Averages" + kZeros;
  const WantedReport allTime{.Range = WantedRange::kAllTime}, byChannel{.ByChannel = true};
  struct Case {
    const char* name;
    WantedReport report;
    std::string json, table;
  };
  const Case kCases[] = {
      {"a line for every day",
       {},
       Object({kHeaders, Days(3), Rows({"2026-03-02 1234 17 0.0138 2.5 1.2E1"}),
               Sums("_ 1234 17 0.0138 2.5 12")}),
       kHeading + ("2026-03-01" + kZeros) + "2026-03-02\t1234\t17\t1.38%\t2.50\t12.00\n" +
           "2026-03-03" + kZeros + "Totals\t1234\t17\t1.38%\t2.50\t12.00\n" +
           "Averages\t1234\t17\t1.38%\t2.50\t12.00\n"},
      {"all time, from the first figures on", allTime,
       Object({kHeaders, Days(3), Rows({"2026-03-02 1 0 0 0 0"}), Sums("_ 1 0 0 0 0")}),
       kHeading + ("2026-03-02\t1" + kRest) + "2026-03-03" + kZeros + "Totals\t1" + kRest +
           "Averages\t1" + kRest},
      {"all time without figures", allTime, Object({Days(3)}),
       kHeading + ("2026-03-03" + kZeros) + kAllZeros},
      // Two names that the code page lacks, one with what has a meaning in the report.
      {"every channel on every day", byChannel,
       Object({kChannelHeaders, Days(2),
               Rows({R"(2026-03-02 \u4e00 1 4 0 0 0 0)", R"(2026-03-01 caf\u00e9 2 1 0 0 0 0)",
                     R"(2026-03-01 \u4e8c 3 3 0 0 0 0)", R"(2026-03-01 <a\t^\"b 4 2 0 0 0 0)"}),
               Sums("_ _ _ 10 0 0 0 0")}),
       "Date\tChannel\tImpressions\tClicks\tCTR\teCPM\tEarnings\n2026-03-01\ta   b\t2" + kRest +
           "2026-03-01\tcaf\xE9\t1" + kRest + "2026-03-01\t?\t0" + kRest + "2026-03-01\t? (2)\t3" +
           kRest + "2026-03-02\ta   b\t0" + kRest + "2026-03-02\tcaf\xE9\t0" + kRest +
           "2026-03-02\t?\t4" + kRest + "2026-03-02\t? (2)\t0" + kRest + "Totals\t\t10" + kRest +
           "Averages\t\t10" + kRest},
      {"two channels of one name, and no totals", byChannel,
       Object({kChannelHeaders, Days(2),
               Rows({"2026-03-02 a 9 4 0 0 0 1", "2026-03-02 a 7 6 1 0 0 1",
                     "2026-03-01 a 9 2 0 0 0 0"})}),
       "Date\tChannel\tImpressions\tClicks\tCTR\teCPM\tEarnings\n2026-03-01\ta\t0" + kRest +
           "2026-03-01\ta (2)\t2" + kRest + "2026-03-02\ta\t6\t1\t0.00%\t0.00\t1.00\n" +
           "2026-03-02\ta (2)\t4\t0\t0.00%\t0.00\t1.00\nTotals\t\t12\t1\t8.33%\t166.67\t2.00\n" +
           "Averages\t\t0" + kRest},
      {"no channels, no data", byChannel, Object({kChannelHeaders, Days(2)}), ""},
      {"referrals",
       {.Product = WantedProduct::kReferrals},
       Object({Days(1), Rows({"12"})}),
       "Date\tImpressions\tClicks\tCTR\tSign-ups\teCPM\tEarnings\n"
       "2026-03-01\t0\t0\t0.00%\t0\t0.00\t0.00\n"
       "Totals\t0\t0\t0.00%\t0\t0.00\t0.00\nAverages\t0\t0\t0.00%\t0\t0.00\t0.00\n"},
      {"a century",
       {},
       Object({kHeaders, R"("startDate":{"year":2000,"month":1,"day":1})",
               R"("endDate":{"year":2099,"month":1,"day":1})", Sums("_ 0 0 0 0 0")}),
       "too long"}};
  for (const Case& c : kCases) EXPECT_EQ(Table(c.report, c.json), c.table) << c.name;
}

TEST(ApiAnswer, NumbersNamesThatBecomeAlikeHoweverMany) {
  std::vector<std::string> names{"? (2)"};
  names.resize(60'000, "\xE4\xB8\x80");
  const std::vector<std::string> cells = ChannelCells(names);
  EXPECT_EQ(std::vector(cells.begin(), cells.begin() + 4),
            (std::vector<std::string>{"? (2)", "?", "? (3)", "? (4)"}));
  EXPECT_EQ(cells.back(), "? (60000)");
}

TEST(ApiAnswer, KeepsEveryCellReadable) {
  const std::pair<std::string, std::string> kCases[] = {
      {"_ _ _ _ _", "0\t0\t0.00%\t0.00\t0.00"},
      {"1234567 1 0.00005 0.005 1234567.891", "1234567\t1\t0.01%\t0.01\t1234567.89"},
      {"1 1 1 1 -0.41", "1\t1\t100.00%\t1.00\t0.00"},
      {"1 1 0.1234567 1 -0", "1\t1\t12.35%\t1.00\t0.00"},
      {"0 0 NaN Infinity 0", "0\t0\t0.00%\t0.00\t0.00"},
      {"0 0 - -Infinity 0", "0\t0\t0.00%\t0.00\t0.00"},
      {"1e300 1 1e307 1 1", "1000000000000000\t1\t1000000000000000.00%\t1.00\t1.00"}};
  for (const auto& [figures, cells] : kCases) {
    const std::string table = Table(
        {}, Object({kHeaders, Days(1), Rows({"2026-03-01 " + figures}), Sums("_ 0 0 0 0 0")}));
    EXPECT_NE(table.find("2026-03-01\t" + cells + "\n"), std::string::npos) << table;
  }
}

TEST(ApiAnswer, IsRefusedWhenItIsNotTheWholeReport) {
  const std::string kRow = Rows({"2026-03-01 1 0 0 0 0"});
  const std::string kSums = Sums("_ 1 0 0 0 0");
  const std::string kBad[] = {
      "",
      "[]",
      "{}",
      "{\"rows\":[",
      std::string(100'000, '['),
      Object({kHeaders, kRow, kSums}),
      Object({Days(1), kRow, kSums}),
      Object({kHeaders, Days(0), kRow, kSums}),
      Object({kHeaders, Days(32), kRow, kSums}),
      Object({kHeaders, Days(1), kSums, R"("totalMatchedRows":"2")"}),
      Object({kHeaders, Days(3), Rows({"2026-03-04 1 0 0 0 0"}), kSums}),
      Object({kHeaders, Days(3), Rows({"2026-02-30 1 0 0 0 0"}), kSums}),
      Object({kHeaders, Days(3), Rows({"2026-03-01 1 0 0 0"}), kSums}),
      Object({kHeaders, Days(3), Rows({"2026-03-01 1 x 0 0 0"}), kSums}),
      Object({kHeaders, Days(3), Rows({"2026-03-01 1 0 NaN 0 0"}), kSums}),
      Object({kHeaders, Days(3), Rows({"2026-03-01 1 0 0 - 0"}), kSums}),
      Object({kHeaders, Days(3), Rows({"2026-03-01 NaN 0 0 0 0"}), kSums}),
      Object({kHeaders, Days(3), kRow, R"("totals":{})"}),
      Object({kHeaders, Days(3), Rows({"2026-03-01 1 0 0 0 0", "2026-03-01 1 0 0 0 0"}), kSums}),
      Object({kChannelHeaders, Days(1), kRow, kSums}) + "x",
      Object({kHeaders, Days(1), kRow, kSums}) + std::string("\0x", 2),
      Object({kHeaders, Days(1), Rows({"2026-03-01 1\\u00000 0 0 0 0"}), kSums}),
      Object({kHeaders, Days(1), Rows({R"(2026-03-01 \ufeff1 0 0 0 0)"}), kSums}),
      Object({kHeaders, Days(1), Rows({R"(2026-03-01 1\n 0 0 0 0)"}), kSums}),
      Object({kHeaders, Days(1), Rows({"2026-03-01 " + std::string(1 << 18, '[') + " 0 0 0 0"}),
              kSums}),
      Object(
          {kHeaders, Days(1), Rows({"2026-03-01 1" + std::string(64, '0') + " 0 0 0 0"}), kSums}),
      Object({kHeaders, Days(1), kRow, kRow, kSums}),
      Object({kHeaders, Days(1), kRow, kSums, "\"warnings\":[\"\xFF\"]"})};
  for (const std::string& json : kBad) {
    EXPECT_EQ(Table({}, json), "no answer") << json.substr(0, 300);
  }
}

TEST(ApiParts, CoverTheDaysAndHoldHalfAnAnswerEach) {
  struct Case {
    int days;
    std::size_t lines, matched;
    std::vector<int> parts;  // days of each
  };
  const Case kCases[] = {{31, 100'000, 100'001, {7, 8, 8, 8}},
                         {31, 100'000, 200'000, {7, 8, 8, 8}},
                         {31, 100'000, 250'000, {5, 5, 5, 5, 5, 6}},
                         {3, 10, 1'000, {1, 1, 1}},
                         {2, 10, 11, {1, 1}},
                         {1, 10, 11, {}},
                         {31, 0, 11, {}}};
  for (const Case& c : kCases) {
    ReportAnswer cut;
    cut.Days.First = ParseDay("2026-03-01").value();
    cut.Days.Last = cut.Days.First + std::chrono::days(c.days - 1);
    cut.Lines.resize(c.lines);
    cut.Matched = c.matched;
    EXPECT_FALSE(cut.IsWhole());
    std::vector<int> parts;
    std::chrono::sys_days next = cut.Days.First;
    for (const DayRange& part : PartsOf(cut)) {
      EXPECT_EQ(part.First, next);
      next = part.Last + std::chrono::days(1);
      parts.push_back(static_cast<int>((next - part.First).count()));
    }
    EXPECT_EQ(parts, c.parts) << c.days << " " << c.matched;
    EXPECT_TRUE(parts.empty() || next == cut.Days.Last + std::chrono::days(1)) << c.days;
  }
}

TEST(ApiParts, MakeTheWholeReportWithTotalsOfItsOwn) {
  const auto read = [](std::initializer_list<std::string> members) {
    return ReadReportAnswer(Object(members), {}).value();
  };
  ReportAnswer report = WithoutFigures(
      read({kHeaders, Days(3), Rows({"2026-03-01 7 7 1 7 7"}), R"("totalMatchedRows":"4")",
            Sums("_ 7 7 1 7 7"), R"("warnings":["v",7,"w"])"}));
  AddPart(report, read({kHeaders, Days(1), Rows({"2026-03-01 100 1 0.01 0 1.5"}),
                        Sums("_ 100 1 9 9 1.5")}));
  AddPart(report, read({kHeaders, Days(2), Sums("_ _ _ _ _ _")}));
  AddPart(report, read({kHeaders, Days(3), Rows({"2026-03-03 300 5 0.01 0 0.5"}),
                        Sums("_ 300 5 9 9 0.5")}));
  EXPECT_TRUE(report.IsWhole());
  EXPECT_EQ(report.Warnings, (std::vector<std::string>{"v", "w"}));
  EXPECT_EQ(TabbedReport({}, report, 10'000), std::string(kHeading) +
                                                  "2026-03-01\t100\t1\t1.00%\t0.00\t1.50\n"
                                                  "2026-03-02\t0\t0\t0.00%\t0.00\t0.00\n"
                                                  "2026-03-03\t300\t5\t1.00%\t0.00\t0.50\n"
                                                  "Totals\t400\t6\t1.50%\t5.00\t2.00\n"
                                                  "Averages\t7\t7\t100.00%\t7.00\t7.00\n");
  EXPECT_GE(BytesOf(report.Lines), 60U);
}

TEST(ApiVerdict, FollowsStatusAndKindOfError) {
  struct Case {
    long status;
    const char *body, *verdict;  // the code, whether another try is worth it, whose affair it is
  };
  const auto verdictOn = [](const Answer& answer) {
    const ServiceVerdict verdict = JudgeServiceAnswer(answer);
    return std::to_string(static_cast<int>(verdict.Code)) +
           (verdict.WorthRepeating ? " again" : "") +
           (verdict.Whom == Concerns::kQuota          ? " quota"
            : verdict.Whom == Concerns::kRegistration ? " registration"
                                                      : "");
  };
  const Case kCases[] = {
      {400, R"({"error":"invalid_grant","error_description":"x"})", "3"},
      {401, R"({"error":"invalid_client"})", "3"},
      {400, R"({"error":"invalid_request"})", "2"},
      {400, R"({"error":{"status":"INVALID_ARGUMENT"}})", "2"},
      {401, R"({"error":{"code":401,"status":"UNAUTHENTICATED"}})", "3"},
      {403, R"({"error":{"status":"PERMISSION_DENIED"}})", "3"},
      {403, R"({"error":{"status":"PERMISSION_DENIED","errors":[{"reason":"quotaExceeded"}]}})",
       "2 again quota"},
      {403, R"({"error":{"details":[1,{"reason":"RATE_LIMIT_EXCEEDED"}]}})", "2 again quota"},
      {403, R"({"error":{"errors":[{"reason":"dailyLimitExceededUnreg"}]}})", "2 again quota"},
      {403, R"({"error":{"details":[{"reason":"SERVICE_DISABLED"}]}})", "3 registration"},
      {403, R"({"error":{"errors":[{"reason":"accessNotConfigured"}]}})", "3 registration"},
      {429, "<html>", "2 again quota"},
      {500, "", "2 again"},
      {302, "", "2"}};
  for (const Case& c : kCases) {
    Answer answer{Transfer::kComplete, c.status, "", "", "", c.body};
    EXPECT_EQ(verdictOn(answer), c.verdict) << c.status << c.body;
    answer.Outcome = Transfer::kNotSecure;
    EXPECT_EQ(verdictOn(answer), "4") << c.status << c.body;
  }
}

TEST(ApiAccounts, AreChosenByTheirState) {
  const std::pair<const char*, const char*> kCases[] = {
      {R"({})", "none"},
      {R"({"accounts":[]})", "none"},
      {R"({"accounts":[{"name":"accounts/a","state":"CLOSED"}]})", "none"},
      {R"({"accounts":[{"name":"accounts/a","state":"NEEDS_ATTENTION"},)"
       R"({"name":"accounts/b","state":"READY"},{"name":"accounts/c","state":"READY"}]})",
       "accounts/b accounts/c"},
      {R"({"accounts":[7,{"name":"accounts/x?y","state":"READY"},)"
       R"({"name":"accounts/a","state":"NEEDS_ATTENTION"}]})",
       "accounts/a"}};
  for (const auto& [list, wanted] : kCases) {
    const auto page = ReadAccountPage(list);
    ASSERT_TRUE(page) << list;
    std::string open;
    for (const PublisherAccount& account : OpenAccounts(page->Accounts)) {
      open += (open.empty() ? "" : " ") + account.Name;
    }
    EXPECT_EQ(open.empty() ? "none" : open, wanted) << list;
  }
  EXPECT_FALSE(ReadAccountPage("<html>"));
  EXPECT_EQ(AccountsPath(""), "/v2/accounts");
  EXPECT_EQ(AccountsPath("a&b="), "/v2/accounts?pageToken=a%26b%3D");
}

TEST(ApiJson, IsReadWithinItsBounds) {
  const auto nested = [](int levels) {  // with the object round it
    return R"({"x":)" + std::string(levels - 1, '[') + std::string(levels - 1, ']') + "}";
  };
  const auto listed = [](int values) {
    std::string list = "0";
    for (int i = 1; i < values; ++i) list += ",{}";
    return R"({"x":[)" + list + "]}";
  };
  const std::string blanks(1 << 20, ' ');
  const std::pair<std::string, bool> kCases[] = {{nested(16), true},
                                                 {nested(17), false},
                                                 {nested(1 << 18), false},
                                                 {listed(20'000), true},
                                                 {listed(200'000), false},
                                                 {"{}" + blanks.substr(2), true},
                                                 {"{}" + blanks, false},
                                                 {R"({"x":"\u0000"})", true},
                                                 {R"({"x":{"a":1},"y":{"a":1}})", true},
                                                 {R"({"x":[{"a":1},{"a":1,"b":0,"a":1}]})", false},
                                                 {"{\"x\":\"\xC0\x80\"}", false},
                                                 {R"({"x":"\ud800"})", false},
                                                 {std::string("{}\0", 3), false},
                                                 {std::string("\0{}", 3), false}};
  for (const auto& [json, read] : kCases) {
    EXPECT_EQ(ReadAccountPage(json).has_value(), read) << json.size() << json.substr(0, 40);
  }
}

TEST(ApiToken, IsTakenOnlyWhenItFitsAHeaderAndAFile) {
  const std::string longest(16 << 10, 't');
  const auto rotated = [](const std::string& token) {
    return R"({"access_token":"a","token_type":"Bearer","refresh_token":")" + token + R"("})";
  };
  const std::pair<std::string, bool> kCases[] = {
      {rotated(longest), true},
      {rotated(longest + "t"), false},
      {rotated("b\\u0000"), false},
      {R"({"access_token":"ya29.x","token_type":"bearer","expires_in":3599})", true},
      {R"({"access_token":"ya29.x","token_type":"mac"})", false},
      {R"({"access_token":"","token_type":"Bearer"})", false},
      {R"({"access_token":"a\r\nX: y","token_type":"Bearer"})", false},
      {R"({"access_token":"a b","token_type":"Bearer"})", false},
      {R"({"access_token":"a","refresh_token":"b\n","token_type":"Bearer"})", false}};
  for (const auto& [json, taken] : kCases) {
    EXPECT_EQ(ReadTokenAnswer(json).has_value(), taken) << json;
  }
  EXPECT_EQ(ReadTokenAnswer(kCases[3].first)->Lifetime, std::chrono::seconds(3599));
  EXPECT_TRUE(HoldsScope("", "b"));
  EXPECT_TRUE(HoldsScope("a b c", "b"));
  EXPECT_FALSE(HoldsScope("a bb c", "b"));
}

}  // namespace
}  // namespace quillbox

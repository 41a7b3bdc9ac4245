// What answers of the reporting service become: reports of old, result codes, accounts, tokens.
#include <gtest/gtest.h>

#include "api/channel_cells.h"
#include "api/publisher_accounts.h"
#include "api/service_verdict.h"
#include "api/tabbed_report.h"
#include "api/token_answer.h"

namespace quillbox {
namespace {

constexpr const char* kHeaders =
    R"("headers":[{"name":"DATE","type":"DIMENSION"},{"name":"IMPRESSIONS"},{"name":"CLICKS"},)"
    R"({"name":"IMPRESSIONS_CTR"},{"name":"IMPRESSIONS_RPM","currencyCode":"EUR"},)"
    R"({"name":"ESTIMATED_EARNINGS","type":"METRIC_CURRENCY","currencyCode":"EUR"}])";
constexpr const char* kChannelHeaders =
    R"("headers":[{"name":"DATE"},{"name":"CUSTOM_CHANNEL_NAME"},{"name":"IMPRESSIONS"},)"
    R"({"name":"CLICKS"},{"name":"IMPRESSIONS_CTR"},{"name":"IMPRESSIONS_RPM"},)"
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

TEST(ApiAnswer, GetsALineForEveryDay) {
  const std::string json = Object({kHeaders, Days(3), Rows({"2026-03-02 1234 17 0.0138 2.5 1.2E1"}),
                                   Sums("_ 1234 17 0.0138 2.5 12"), R"("warnings":["a",7,"b"])"});
  EXPECT_EQ(Table({}, json), std::string(kHeading) +
                                 "2026-03-01\t0\t0\t0.00%\t0.00\t0.00\n"
                                 "2026-03-02\t1234\t17\t1.38%\t2.50\t12.00\n"
                                 "2026-03-03\t0\t0\t0.00%\t0.00\t0.00\n"
                                 "Totals\t1234\t17\t1.38%\t2.50\t12.00\n"
                                 "Averages\t1234\t17\t1.38%\t2.50\t12.00\n");
  const auto answer = ReadReportAnswer(json, {}).value();
  EXPECT_EQ(answer.Currency, "EUR");
  EXPECT_EQ(answer.Warnings, (std::vector<std::string>{"a", "b"}));
}

TEST(ApiAnswer, OfAllTimeBeginsWithTheFirstFigures) {
  const WantedReport allTime{.Range = WantedRange::kAllTime};
  EXPECT_EQ(Table(allTime,
                  Object({kHeaders, Days(3), Rows({"2026-03-02 1 0 0 0 0"}), Sums("_ 1 0 0 0 0")})),
            std::string(kHeading) +
                "2026-03-02\t1\t0\t0.00%\t0.00\t0.00\n2026-03-03\t0\t0\t0.00%\t0.00\t0.00\n"
                "Totals\t1\t0\t0.00%\t0.00\t0.00\nAverages\t1\t0\t0.00%\t0.00\t0.00\n");
  EXPECT_EQ(Table(allTime, Object({Days(3)})),
            std::string(kHeading) +
                "2026-03-03\t0\t0\t0.00%\t0.00\t0.00\n"
                "Totals\t0\t0\t0.00%\t0.00\t0.00\nAverages\t0\t0\t0.00%\t0.00\t0.00\n");
}

TEST(ApiAnswer, GetsEveryChannelOnEveryDayUnderANameOfItsOwn) {
  // Two names that the code page lacks, one with what has a meaning in the report, one with
  // "\u00e9".
  const std::string json =
      Object({kChannelHeaders, Days(2),
              Rows({R"(2026-03-02 \u4e00 4 0 0 0 0)", R"(2026-03-01 caf\u00e9 1 0 0 0 0)",
                    R"(2026-03-01 \u4e8c 3 0 0 0 0)", R"(2026-03-01 <a\t^\"b 2 0 0 0 0)"}),
              Sums("_ _ 10 0 0 0 0")});
  const std::string kRest = "\t0\t0.00%\t0.00\t0.00\n";
  EXPECT_EQ(Table({.ByChannel = true}, json),
            "Date\tChannel\tImpressions\tClicks\tCTR\teCPM\tEarnings\n"
            "2026-03-01\ta   b\t2" +
                kRest + "2026-03-01\tcaf\xE9\t1" + kRest + "2026-03-01\t?\t0" + kRest +
                "2026-03-01\t? (2)\t3" + kRest + "2026-03-02\ta   b\t0" + kRest +
                "2026-03-02\tcaf\xE9\t0" + kRest + "2026-03-02\t?\t4" + kRest +
                "2026-03-02\t? (2)\t0" + kRest + "Totals\t\t10" + kRest + "Averages\t\t10" + kRest);
  EXPECT_EQ(Table({.ByChannel = true}, Object({kChannelHeaders, Days(2)})), "")
      << "no channels, no data";
}

TEST(ApiAnswer, NumbersNamesThatBecomeAlikeHoweverMany) {
  std::vector<std::string> names{"? (2)"};
  names.resize(60'000, "\xE4\xB8\x80");
  const std::vector<std::string> cells = ChannelCells(names);
  EXPECT_EQ(std::vector(cells.begin(), cells.begin() + 4),
            (std::vector<std::string>{"? (2)", "?", "? (3)", "? (4)"}));
  EXPECT_EQ(cells.back(), "? (60000)");
}

TEST(ApiAnswer, OfReferralsIsZeros) {
  EXPECT_EQ(Table({.Product = WantedProduct::kReferrals}, Object({Days(1), Rows({"12"})})),
            "Date\tImpressions\tClicks\tCTR\tSign-ups\teCPM\tEarnings\n"
            "2026-03-01\t0\t0\t0.00%\t0\t0.00\t0.00\n"
            "Totals\t0\t0\t0.00%\t0\t0.00\t0.00\nAverages\t0\t0\t0.00%\t0\t0.00\t0.00\n");
}

TEST(ApiAnswer, KeepsEveryCellReadable) {
  struct Case {
    const char *figures, *cells;
  };
  const Case kCases[] = {
      {"0 0 0 0 0", "0\t0\t0.00%\t0.00\t0.00"},
      {"_ _ _ _ _", "0\t0\t0.00%\t0.00\t0.00"},
      {"1234567 1 0.00005 0.005 1234567.891", "1234567\t1\t0.01%\t0.01\t1234567.89"},
      {"1 1 1 1 -0.41", "1\t1\t100.00%\t1.00\t0.00"},
      {"1 1 0.1234567 1 -0", "1\t1\t12.35%\t1.00\t0.00"},
      {"1e300 1 1e307 1 1", "1000000000000000\t1\t1000000000000000.00%\t1.00\t1.00"}};
  for (const Case& c : kCases) {
    const std::string table =
        Table({}, Object({kHeaders, Days(1), Rows({"2026-03-01 " + std::string(c.figures)}),
                          Sums("_ 0 0 0 0 0")}));
    EXPECT_NE(table.find("2026-03-01\t" + std::string(c.cells) + "\n"), std::string::npos)
        << c.figures << "\n"
        << table;
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
      Object({kHeaders, Days(1), kRow}),
      Object({kHeaders, Days(0), kRow, kSums}),
      Object({kHeaders, Days(32), kRow, kSums}),
      Object({kHeaders, Days(1), kRow, kSums, R"("totalMatchedRows":"2")"}),
      Object({kHeaders, Days(3), Rows({"2026-03-04 1 0 0 0 0"}), kSums}),
      Object({kHeaders, Days(3), Rows({"2026-02-30 1 0 0 0 0"}), kSums}),
      Object({kHeaders, Days(3), Rows({"2026-03-01 1 0 0 0"}), kSums}),
      Object({kHeaders, Days(3), Rows({"2026-03-01 1 x 0 0 0"}), kSums}),
      Object({kHeaders, Days(3), Rows({"2026-03-01 1 nan 0 0 0"}), kSums}),
      Object({kHeaders, Days(3), Rows({"2026-03-01 1 0 0 0 0", "2026-03-01 1 0 0 0 0"}), kSums}),
      Object({kChannelHeaders, Days(1), kRow, kSums}) + "x"};
  for (const std::string& json : kBad) {
    EXPECT_EQ(Table({}, json), "no answer") << json.substr(0, 300);
  }
  EXPECT_EQ(
      Table({}, Object({kHeaders, R"("startDate":{"year":2000,"month":1,"day":1})",
                        R"("endDate":{"year":2099,"month":1,"day":1})", Sums("_ 0 0 0 0 0")})),
      "too long");
}

// The result code, and whether another try is worth it.
std::string VerdictOn(const Answer& answer) {
  const ServiceVerdict verdict = JudgeServiceAnswer(answer);
  return std::to_string(static_cast<int>(verdict.Code)) + (verdict.WorthRepeating ? " again" : "");
}

TEST(ApiVerdict, FollowsStatusAndKindOfError) {
  struct Case {
    long status;
    const char *body, *verdict;
  };
  const Case kCases[] = {
      {200, "{}", "0"},
      {400, R"({"error":"invalid_grant","error_description":"x"})", "3"},
      {401, R"({"error":"invalid_client"})", "3"},
      {400, R"({"error":"invalid_request"})", "2"},
      {400, R"({"error":{"status":"INVALID_ARGUMENT"}})", "2"},
      {401, R"({"error":{"code":401,"status":"UNAUTHENTICATED"}})", "3"},
      {403, R"({"error":{"status":"PERMISSION_DENIED"}})", "3"},
      {403, R"({"error":{"status":"PERMISSION_DENIED","errors":[{"reason":"quotaExceeded"}]}})",
       "2 again"},
      {403, R"({"error":{"details":[1,{"reason":"RATE_LIMIT_EXCEEDED"}]}})", "2 again"},
      {429, "<html>", "2 again"},
      {500, "", "2 again"},
      {503, R"({"error":{"status":"UNAVAILABLE"}})", "2 again"},
      {404, R"({"error":{"status":"NOT_FOUND"}})", "2"},
      {302, "", "2"}};
  for (const Case& c : kCases) {
    Answer answer{Transfer::kComplete, c.status, "", "", "", c.body};
    EXPECT_EQ(VerdictOn(answer), c.verdict) << c.status << c.body;
    answer.Outcome = Transfer::kNotSecure;
    EXPECT_EQ(VerdictOn(answer), "4") << c.status << c.body;
  }
}

TEST(ApiAccounts, AreChosenByTheirState) {
  const std::pair<const char*, const char*> kCases[] = {
      {R"({})", "none"},
      {R"({"accounts":[]})", "none"},
      {R"({"accounts":[{"name":"accounts/a","state":"CLOSED"}]})", "none"},
      {R"({"accounts":[{"name":"accounts/a","state":"NEEDS_ATTENTION"},)"
       R"({"name":"accounts/b","state":"READY"},{"name":"accounts/c","state":"READY"}]})",
       "accounts/b"},
      {R"({"accounts":[7,{"name":"accounts/x?y","state":"READY"},)"
       R"({"name":"accounts/a","state":"NEEDS_ATTENTION"}]})",
       "accounts/a"}};
  for (const auto& [list, wanted] : kCases) {
    const auto page = ReadAccountPage(list);
    ASSERT_TRUE(page) << list;
    const PublisherAccount* const chosen = ChooseAccount(page->Accounts);
    EXPECT_EQ(chosen == nullptr ? "none" : chosen->Name, wanted) << list;
  }
  EXPECT_FALSE(ReadAccountPage("<html>"));
  EXPECT_EQ(AccountsPath(""), "/v2/accounts");
  EXPECT_EQ(AccountsPath("a&b="), "/v2/accounts?pageToken=a%26b%3D");
}

TEST(ApiToken, IsTakenOnlyWhenItFitsAHeader) {
  struct Case {
    const char* json;
    bool taken;
  };
  const Case kCases[] = {
      {R"({"access_token":"ya29.x","token_type":"Bearer","expires_in":3599})", true},
      {R"({"access_token":"ya29.x","token_type":"bearer"})", true},
      {R"({"access_token":"ya29.x","token_type":"mac"})", false},
      {R"({"access_token":"","token_type":"Bearer"})", false},
      {R"({"token_type":"Bearer"})", false},
      {R"({"access_token":"a\r\nX: y","token_type":"Bearer"})", false},
      {R"({"access_token":"a b","token_type":"Bearer"})", false},
      {R"({"access_token":"a","refresh_token":"b\n","token_type":"Bearer"})", false}};
  for (const Case& c : kCases) EXPECT_EQ(ReadTokenAnswer(c.json).has_value(), c.taken) << c.json;
  EXPECT_EQ(ReadTokenAnswer(kCases[0].json)->Lifetime, std::chrono::seconds(3599));
  EXPECT_EQ(ReadTokenAnswer(kCases[1].json)->Lifetime, std::nullopt);
  EXPECT_TRUE(HoldsScope("", "b"));
  EXPECT_TRUE(HoldsScope("a b c", "b"));
  EXPECT_FALSE(HoldsScope("a bb c", "b"));
}

}  // namespace
}  // namespace quillbox

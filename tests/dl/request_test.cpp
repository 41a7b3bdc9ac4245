// All that the fetch program decides without a network: its argument, its limits, what answers
// mean.
#include <gtest/gtest.h>

#include <array>

#include "request/agent_text.h"
#include "request/answer.h"
#include "request/limits.h"
#include "request/web_address.h"

namespace quillbox {
namespace {

TEST(AgentText, PathsAreCutFromTheRight) {
  const std::pair<const char*, const char*> kCases[] = {
      {"https://h/v|/a b/x.dat|/a b/x.log", "https://h/v, /a b/x.dat, /a b/x.log"},
      {"Email=a&Passwd=|x|y|%#%https://h|/d|/l", "Email=a&Passwd=|x|y|%#%https://h, /d, /l"},
      {"|/d|/l", ", /d, /l"},
      {"", "none"},
      {"|", "none"},
      {"https://h|/d", "none"},
      {"https://h||/l", "none"},
      {"https://h|/d|", "none"},
  };
  for (const auto& [text, wanted] : kCases) {
    const auto parts = SplitAgentText(text);
    EXPECT_EQ(parts ? parts->Request + ", " + parts->DataPath + ", " + parts->LogPath : "none",
              wanted)
        << text;
  }
}

TEST(AgentText, HalfARequestIsNone) {
  for (const char* text : {"", "%#%https://h", "Email=a%#%https://h", "Passwd=b%#%https://h",
                           "Email=a&Passwd=b%#%", "x&Email=a&Passwd=b%#%https://h"}) {
    EXPECT_FALSE(ParseAgentRequest(text)) << text;
  }
}

TEST(WebAddress, OneReadingOfTheHostOrNone) {
  const std::pair<const char*, const char*> kCases[] = {
      {"https://h.example:8443/p?q", "h.example:8443"},
      {"HTTPS://h?q", "h"},
      {"http://[::1]:80/", "[::1]:80"},
      {"https://good@evil/", "none"},
      {"https://evil\\@good/", "none"},
      {"https:///p", "none"},
      {"https://a b/", "none"},
      {"ftp://h/", "none"},
      {"h/p", "none"},
      {"", "none"},
  };
  for (const auto& [text, host] : kCases) {
    const auto address = ParseWebAddress(text);
    EXPECT_EQ(address ? address->Host : "none", host) << text;
  }
}

TEST(Answer, TheStatusDecidesAndAPageInThePlaceOfAReportIsARefusal) {
  struct Case {
    long status;
    const char *type, *address, *body;
    ResultCode answer, report;  // to a plain request; to one for a report
  };
  const ResultCode kGood = ResultCode::kSuccess, kNone = ResultCode::kNoAnswer,
                   kRefused = ResultCode::kRefused;
  const char *const kReport = "https://h/r", *const kText = "text/plain";
  const Case kCases[] = {
      {0, kText, kReport, "x", kNone, kNone},
      {199, kText, kReport, "x", kNone, kNone},
      {200, kText, kReport, "x\ty\n", kGood, kGood},
      {200, kText, kReport, "", kGood, kGood},
      {200, kText, kReport, " \n", kGood, kGood},
      {299, kText, kReport, "x", kGood, kGood},
      {300, kText, kReport, "x", kNone, kNone},
      {400, kText, kReport, "x", kNone, kNone},
      {200, "text/html; charset=utf-8", kReport, "x\ty\n", kGood, kRefused},
      {200, "Application/XHTML+xml", kReport, "x", kGood, kRefused},
      {200, kText, kReport, " \r\n<!DOCTYPE HTML><title>", kGood, kRefused},
      {200, "", kReport, "<HTML>", kGood, kRefused},
      {200, kText, "https://h/accounts/ServiceLogin?x", "sign in", kGood, kRefused},
  };
  for (const Case& c : kCases) {
    const Answer answer{Transfer::kComplete, c.status, c.type, c.address, "", c.body};
    EXPECT_EQ(JudgeAnswer(answer), c.answer) << c.status << c.type << c.body;
    EXPECT_EQ(JudgeReport(answer), c.report) << c.status << c.type << c.body;
  }
}

TEST(Limits, AreShortenedOnly) {
  struct Case {
    const char* text;
    int connect, idle, total, person = 300'000;
  };
  const Case kCases[] = {{"", 20'000, 60'000, 100'000},
                         {"1,2,3", 1, 2, 3},
                         {"1,2,3,4", 1, 2, 3, 4},
                         {"1,2,3,300001", 1, 2, 3},
                         {"1,2,3,4,5", 20'000, 60'000, 100'000},
                         {"30000,2,900000", 20'000, 2, 100'000},
                         {"1,2", 20'000, 60'000, 100'000},
                         {"1,2,3,", 20'000, 60'000, 100'000},
                         {"-1,2,3", 20'000, 60'000, 100'000},
                         {"1,2,99999999999", 20'000, 60'000, 100'000}};
  for (const Case& c : kCases) {
    const Limits limits = ShortenedLimits(c.text);
    EXPECT_EQ((std::array{limits.Connect.count(), limits.Idle.count(), limits.Total.count(),
                          limits.Person.count()}),
              (std::array<std::int64_t, 4>{c.connect, c.idle, c.total, c.person}))
        << c.text;
  }
}

}  // namespace
}  // namespace quillbox

// All that the fetch program decides without a network: its argument, its limits, what answers
// mean.
#include <gtest/gtest.h>

#include "request/agent_text.h"
#include "request/answer.h"
#include "request/limits.h"
#include "request/sign_in_form.h"
#include "request/web_address.h"

namespace quillbox {
namespace {

TEST(AgentText, PathsAreCutFromTheRight) {
  struct Case {
    const char *text, *parts;
  };
  const Case kCases[] = {
      {"https://h/v|/a b/x.dat|/a b/x.log", "https://h/v, /a b/x.dat, /a b/x.log"},
      {"Email=a&Passwd=|x|y|%#%https://h|/d|/l", "Email=a&Passwd=|x|y|%#%https://h, /d, /l"},
      {"|/d|/l", ", /d, /l"},
      {"", "none"},
      {"|", "none"},
      {"https://h", "none"},
      {"https://h|/d", "none"},
      {"https://h||/l", "none"},
      {"https://h|/d|", "none"},
  };
  for (const Case& c : kCases) {
    const auto parts = SplitAgentText(c.text);
    EXPECT_EQ(parts ? parts->Request + ", " + parts->DataPath + ", " + parts->LogPath : "none",
              c.parts)
        << c.text;
  }
}

TEST(AgentText, PlainRequestsSignNobodyInAndHalfARequestIsNone) {
  const auto plain = ParseAgentRequest("https://h/versionqb.txt");
  ASSERT_TRUE(plain);
  EXPECT_FALSE(plain->SignIn);
  EXPECT_EQ(plain->Address, "https://h/versionqb.txt");
  for (const char* text : {"", "%#%https://h", "Email=a%#%https://h", "Passwd=b%#%https://h",
                           "Email=a&Passwd=b%#%", "x&Email=a&Passwd=b%#%https://h"}) {
    EXPECT_FALSE(ParseAgentRequest(text)) << text;
  }
}

TEST(SignInForm, IsUtf8AndEncodesAllThatAFormReserves) {
  EXPECT_EQ(SignInForm({"a.b@c", "p&=+% \xFC\x80|"}),
            "Email=a.b%40c&Passwd=p%26%3D%2B%25%20%C3%BC%E2%82%AC%7C");
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
  EXPECT_EQ(SignInAddress("h:1"), "https://h:1/accounts/ServiceLoginAuth");
}

Answer Complete(long status, const char* type, const char* address, const char* body) {
  return {Transfer::kComplete, status, type, address, "", body};
}

TEST(Answer, TheStatusDecides) {
  struct Case {
    long status;
    ResultCode code;
  };
  const Case kCases[] = {
      {199, ResultCode::kNoAnswer}, {200, ResultCode::kSuccess},  {204, ResultCode::kSuccess},
      {299, ResultCode::kSuccess},  {300, ResultCode::kNoAnswer}, {302, ResultCode::kNoAnswer},
      {400, ResultCode::kNoAnswer}, {401, ResultCode::kRefused},  {403, ResultCode::kRefused},
      {404, ResultCode::kNoAnswer}, {500, ResultCode::kNoAnswer}, {0, ResultCode::kNoAnswer}};
  for (const Case& c : kCases) {
    const Answer answer = Complete(c.status, "text/plain", "https://h/r", "x\ty\n");
    EXPECT_EQ(JudgeAnswer(answer), c.code) << c.status;
    EXPECT_EQ(JudgeReport(answer), c.code) << c.status;
  }
}

TEST(Answer, APageInThePlaceOfAReportIsARefusal) {
  const Answer kPages[] = {
      Complete(200, "text/html; charset=utf-8", "https://h/r", "x\ty\n"),
      Complete(200, "Application/XHTML+xml", "https://h/r", "x"),
      Complete(200, "text/plain", "https://h/r", " \r\n<!DOCTYPE HTML><title>"),
      Complete(200, "", "https://h/r", "<HTML>"),
      Complete(200, "text/plain", "https://h/accounts/ServiceLogin?x", "sign in"),
  };
  for (const Answer& page : kPages) {
    EXPECT_EQ(JudgeReport(page), ResultCode::kRefused) << page.Body << " of " << page.Address;
    EXPECT_EQ(JudgeAnswer(page), ResultCode::kSuccess) << page.Body << " of " << page.Address;
  }
  EXPECT_EQ(JudgeReport(Complete(200, "text/plain", "https://h/r", "")), ResultCode::kSuccess);
  EXPECT_EQ(JudgeReport(Complete(200, "text/plain", "https://h/r", " \n")), ResultCode::kSuccess);
}

TEST(Limits, AreShortenedOnly) {
  struct Case {
    const char* text;
    int connect, idle, total;
  };
  const Case kCases[] = {{"", 20'000, 60'000, 100'000},
                         {"1,2,3", 1, 2, 3},
                         {"30000,2,900000", 20'000, 2, 100'000},
                         {"1,2", 20'000, 60'000, 100'000},
                         {"1,2,3,", 20'000, 60'000, 100'000},
                         {"-1,2,3", 20'000, 60'000, 100'000},
                         {"1,2,99999999999", 20'000, 60'000, 100'000}};
  for (const Case& c : kCases) {
    const Limits limits = ShortenedLimits(c.text);
    EXPECT_EQ(limits.Connect.count(), c.connect) << c.text;
    EXPECT_EQ(limits.Idle.count(), c.idle) << c.text;
    EXPECT_EQ(limits.Total.count(), c.total) << c.text;
    EXPECT_EQ(limits.BodyBytes, 64U * 1024 * 1024) << c.text;
  }
}

}  // namespace
}  // namespace quillbox

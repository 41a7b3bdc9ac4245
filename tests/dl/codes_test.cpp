// Every result code, and every way in which the demo service can fail.
#include <gtest/gtest.h>

#include <sys/socket.h>

#include <sstream>

#include "dl/support/grants.h"
#include "dl/support/listening_program.h"

namespace quillbox {
namespace {

constexpr const char* kReferralReport =
    "/adsense/report/referrals?product=ref&dateRange.simpleDate=thismonth";
constexpr const char* kVersion = "/versionqb.txt";
constexpr const char* kUsual = "5000,5000,15000";     // milliseconds
constexpr const char* kQuick = "5000,400,5000";       // nothing for long is an error
constexpr const char* kQuickInAll = "5000,5000,900";  // too little for a dripping answer

struct CodeCase {
  const char* name;
  const char* options;   // of the service, a blank between two
  const char* password;  // or a grant's name; null: the plain form
  const char* code;
  const char* limits = kUsual;
  const char* path = kContentReport;
};

const CodeCase kCodes[] = {
    {"content report", "", kPassword, "0"},
    {"referral report", "", kPassword, "0", kUsual, kReferralReport},
    {"version", "", nullptr, "0", kUsual, kVersion},
    {"wrong password", "", "thyme", "3"},
    {"empty password", "", "", "3"},
    {"not signed in, a page comes", "", nullptr, "0"},
    {"refused at the sign-in", "--fail refuse:/accounts", kPassword, "3"},
    {"refused at the report", "--fail refuse:/adsense/report", kPassword, "3"},
    {"this account refused", "--fail refuse:someone@example.test", kPassword, "3"},
    {"another account refused", "--fail refuse:other@example.test", kPassword, "0"},
    {"401", "--fail 401:/adsense/report", kPassword, "3"},
    {"401 at the sign-in", "--fail 401:/accounts", kPassword, "3"},
    {"403 in the plain form", "--fail 403", nullptr, "3", kUsual, kVersion},
    {"error page", "--fail error", kPassword, "2"},
    {"error page at the report", "--fail error:/adsense/report", kPassword, "2"},
    {"error page behind the sign-in", "--fail error:/adsense/gaia", kPassword, "2"},
    {"404", "--fail 404", nullptr, "2", kUsual, kVersion},
    {"unknown path", "", nullptr, "2", kUsual, "/nothing"},
    {"stall at the sign-in", "--fail stall:/accounts", kPassword, "2", kQuick},
    {"stall at the report", "--fail stall:/adsense/report", kPassword, "2", kQuick},
    {"drip, slow but moving", "--fail drip:/adsense/report", kPassword, "2", kQuickInAll},
    {"drip that ends in time", "--fail drip:/accounts", kPassword, "0"},
    {"cut off", "--fail cut", nullptr, "2", kUsual, kVersion},
    {"report cut off", "--fail cut:/adsense/report", kPassword, "2"},
    {"redirect to http", "--fail downgrade:/adsense/report", kPassword, "2"},
    {"redirect of the sign-in to http", "--fail downgrade:/accounts", kPassword, "2"},
    {"certificate for another name", "--fail wrong-name", kPassword, "4"},
    {"certificate of another authority", "--fail untrusted", kPassword, "4"},
    {"untrusted in the plain form", "--fail untrusted", nullptr, "4", kUsual, kVersion},

    {"grant", "", kGrantName, "0"},
    {"a page of warnings", "--warning one --warning two", kGrantName, "0"},
    {"a clock far ahead", "--clock-skew 86400", kGrantName, "0"},
    {"a clock far behind", "--clock-skew -86400", kGrantName, "0"},
    {"grant revoked", "--fail refuse:/token", kGrantName, "3"},
    {"grant of another client", "--client other:secret", kGrantName, "3"},
    {"not permitted", "--fail refuse:/v2", kGrantName, "3"},
    {"the token isn't taken", "--token-life 0", kGrantName, "3"},
    {"401 to a token", "--fail 401:/v2", kGrantName, "3"},
    {"quota", "--fail 429:/v2", kGrantName, "2"},
    {"quota that passes", "--fail 429*2:/v2", kGrantName, "0"},
    {"fault of the token endpoint", "--fail 500:/token", kGrantName, "2"},
    {"a page in the place of a token", "--fail downgrade:/token", kGrantName, "2"},
    {"a redirect of the granted report", "--fail downgrade:/v2", kGrantName, "2"},
    {"token stalls", "--fail stall:/token", kGrantName, "2", kQuick},
    {"granted report stalls", "--fail stall:/v2", kGrantName, "2", kQuick},
    {"granted report cut off", "--fail cut:/v2", kGrantName, "2"},
    {"not the grant's service", "--fail wrong-name", kGrantName, "4"},
    {"untrusted with a grant", "--fail untrusted", kGrantName, "4"},
};

void PrintTo(const CodeCase& c, std::ostream* out) {
  *out << c.name;
}

std::vector<std::string> Words(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

DlStart StartOf(const CodeCase& c, const DemoService& service, const GrantHome& home) {
  if (c.password == nullptr) return service.Plain(c.path);
  if (c.password == std::string(kGrantName)) return Granted(service, home, c.path);
  return service.Signed(c.path, c.password);
}

class Codes : public testing::TestWithParam<CodeCase> {};

TEST_P(Codes, AreLeftInTheLogAndDataWithSuccessAlone) {
  const CodeCase& c = GetParam();
  DemoService service(Words(c.options));
  const GrantHome home;
  const DlRun run;
  DlStart start = StartOf(c, service, home);
  start.Limits = c.limits;
  EXPECT_EQ(run.Run(start), 0);
  EXPECT_EQ(run.Log(), c.code);
  EXPECT_EQ(run.Data().has_value(), std::string(c.code) == "0");
  EXPECT_EQ(service.Process().End(), 0) << "the service ends cleanly whatever it was doing";
}

INSTANTIATE_TEST_SUITE_P(OfTheDemoService, Codes, testing::ValuesIn(kCodes));

// Deaf: its queue is full, so that connections are not taken. Silent: it takes them and never says
// a word.
TEST(Connection, IsToldFromAnAnswer) {
  const LoopbackSocket absent, deaf, silent, first(SOCK_NONBLOCK), second(SOCK_NONBLOCK),
      third(SOCK_NONBLOCK);
  const int deafPort = deaf.Bind();
  deaf.Listen(0);
  for (const LoopbackSocket* client : {&first, &second, &third}) client->Connect(deafPort);
  const int silentPort = silent.Bind();
  silent.Listen(8);
  for (const auto& [port, code] :
       {std::pair{absent.Bind(), "1"}, {deafPort, "1"}, {silentPort, "2"}}) {
    const DlRun run;
    const std::string address = "https://127.0.0.1:" + std::to_string(port) + "/x";
    EXPECT_EQ(run.CodeOf({SignedIn(kEmail, kPassword, address), "", "400,5000,5000"}), code)
        << address << " of " << deafPort << " deaf, " << silentPort << " silent";
  }
}

TEST(Connection, WhatCannotBeUnderstoodFoundOrSentHasACodeToo) {
  const std::pair<const char*, const char*> kRequests[] = {
      {"", "1"},
      {"ftp://localhost/x", "1"},
      {"https://user@localhost/x", "1"},
      {"Email=a%#%https://localhost/x", "1"},
      {"Email=a&Passwd=b%#%https://nowhere.invalid/x", "1"},
      {"Email=a&Passwd=b%#%http://localhost/x", "4"}};
  for (const auto& [request, code] : kRequests) {
    const DlRun run;
    EXPECT_EQ(run.Run({request, "", kQuick}), 0) << request;
    EXPECT_EQ(run.Log(), code) << request;
    EXPECT_FALSE(run.Data()) << request;
  }
}

}  // namespace
}  // namespace quillbox

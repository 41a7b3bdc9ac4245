// A service that wants more than it should get, or answers in ways of its own: where
// grants and tokens go, and how often it is asked.
#include <gmock/gmock.h>

#include <algorithm>

#include "dl/support/grants.h"
#include "dl/support/listening_server.h"

namespace quillbox {
namespace {

using testing::HasSubstr;
using testing::Not;

using Answers = std::vector<std::string>;  // in turn, as for Reply; the last again and again

constexpr const char* kToken = "token-for-the-tests";
constexpr const char* kGoodToken =
    "200\n\n"
    R"({"access_token":"token-for-the-tests","token_type":"Bearer"})";
constexpr const char* kHastyToken =
    "200\n\n"
    R"({"access_token":"token-for-the-tests","token_type":"Bearer","expires_in":0})";
constexpr const char* kGoodReport =
    "200\n\n"
    R"({"startDate":{"year":2026,"month":3,"day":1},"endDate":{"year":2026,"month":3,"day":1}})";
constexpr const char* kEchoedGrant =
    "400\n\n"
    R"({"error":"invalid_grant","error_description":"1//a-grant_of.the/tests token-for-the-tests"})";
constexpr const char* kGrantForError =
    "401\n\n"
    R"({"error":"1//a-grant_of.the/tests"})";
constexpr const char* kEchoedToken =
    "403\n\n"
    R"({"error":{"status":"X","message":"you sent token-for-the-tests"}})";
constexpr const char* kTokenRefused = "401\n\nx";
constexpr const char* kRangeRefused =
    "400\n\n"
    R"({"error":{"status":"INVALID_ARGUMENT"}})";
constexpr const char* kServiceIsOff =
    "403\n\n"
    R"({"error":{"status":"PERMISSION_DENIED","message":"m","details":[{"reason":"SERVICE_DISABLED"}]}})";
constexpr const char* kBusy = "503\nRetry-After: 1";
constexpr const char* kBusyForLong = "429\nRetry-After: 3600";
constexpr const char* kFault = "500\n\nx";

struct SecretCase {
  const char* name;
  Answers tokens, reports;
  const char* code;
  std::ptrdiff_t tokenCount, reportCount;  // requests
  const char* range = "thismonth";
};

const SecretCase kSecretCases[] = {
    {"good", {kGoodToken}, {kGoodReport}, "0", 1, 1},
    {"grant led elsewhere, 302", {"302\nLocation: https://{other}/x"}, {kGoodReport}, "2", 1, 0},
    {"grant led elsewhere, 307", {"307\nLocation: https://{other}/x"}, {kGoodReport}, "2", 1, 0},
    {"grant led elsewhere, 308", {"308\nLocation: https://{other}/x"}, {kGoodReport}, "2", 1, 0},
    {"token led elsewhere, 302", {kGoodToken}, {"302\nLocation: https://{other}/x"}, "2", 1, 1},
    {"token led elsewhere, 307", {kGoodToken}, {"307\nLocation: //{other}/x"}, "2", 1, 1},
    {"token led within the host", {kGoodToken}, {"301\nLocation: /token"}, "2", 1, 1},
    {"no token", {"200\n\n{}"}, {kGoodReport}, "2", 1, 0},
    {"a page", {"200\n\n<html>"}, {kGoodReport}, "2", 1, 0},
    {"no report", {kGoodToken}, {"200\n\n{}"}, "2", 1, 1},
    {"a fault that passes", {kFault, kGoodToken}, {kFault, kFault, kGoodReport}, "0", 2, 3},
    {"a fault that stays", {kGoodToken}, {kFault}, "2", 1, 3},
    {"busy", {kGoodToken}, {kBusy, kGoodReport}, "0", 1, 2},
    {"busy for long", {kGoodToken}, {"503\nRetry-After: 3600", kGoodReport}, "2", 1, 1},
    {"one token for both questions", {kGoodToken}, {kGoodReport}, "0", 1, 2, "lastmonth"},
    {"a token that is over at once", {kHastyToken}, {kGoodReport}, "0", 2, 2, "lastmonth"},
    {"a token refused at once", {kGoodToken}, {kTokenRefused}, "3", 1, 1, "lastmonth"},
    {"a token taken back",
     {kGoodToken},
     {kGoodReport, kTokenRefused, kGoodReport},
     "0",
     2,
     3,
     "lastmonth"},
    {"and again", {kGoodToken}, {kGoodReport, kTokenRefused}, "3", 2, 3, "lastmonth"},
    {"too old a start",
     {kGoodToken},
     {kGoodReport, kRangeRefused, kGoodReport},
     "0",
     1,
     3,
     "alltime"},
    {"any start", {kGoodToken}, {kGoodReport, kRangeRefused}, "2", 1, 3, "alltime"},
    {"a start that isn't ours",
     {kGoodToken},
     {kGoodReport, kRangeRefused},
     "2",
     1,
     2,
     "lastmonth"}};

class GrantSecrets : public testing::Test {
 protected:
  GrantSecrets() { run_.Folder.Put("authority.pem", authority_.Pem()); }

  httplib::Server::Handler InTurn(const Answers& answers) const {
    return [answers, next = std::make_shared<std::size_t>(0), this](const auto&, auto& response) {
      Reply(answers[std::min((*next)++, answers.size() - 1)], places_, response);
    };
  }

  std::unique_ptr<httplib::Server> Service(const Answers& tokens, const Answers& reports) const {
    auto server = SecureServer(certificate_);
    server->Post("/token", InTurn(tokens));
    server->Get("/v2/.*", InTurn(reports));
    return AnswerAll(std::move(server));
  }

  // Of a report of no figures, the shortest to answer.
  std::string FetchCode(const ListeningServer& service, const std::string& range = "thismonth") {
    const std::string address =
        "https://a.test/adsense/report/referrals?product=ref&dateRange.simpleDate=" + range;
    return run_.CodeOf({SignedIn(kEmail, kGrantName, address), run_.Folder.File("authority.pem"),
                        DlStart().Limits, home_.Environment(service.Host("localhost"))});
  }

  static std::ptrdiff_t Count(const ListeningServer& service, const std::string& beginning) {
    return std::ranges::count_if(service.Requests(), [&](const httplib::Request& request) {
      return request.path.starts_with(beginning);
    });
  }

  const ThrowawayAuthority authority_{"test"};
  const Certificate certificate_ = authority_.Issue({"DNS:localhost,IP:127.0.0.1"});
  const ListeningServer other_{AnswerAll(SecureServer(certificate_))};
  const std::vector<std::pair<std::string, std::string>> places_ = {
      {"{other}", other_.Host("127.0.0.1")}};
  const GrantHome home_;
  const DlRun run_;
};

TEST_F(GrantSecrets, GoToTheirPlaceAloneAndNoOftenerThanNeeded) {
  for (const SecretCase& c : kSecretCases) {
    SCOPED_TRACE(c.name);
    const ListeningServer service(Service(c.tokens, c.reports));
    EXPECT_EQ(FetchCode(service, c.range), c.code);
    EXPECT_EQ(Count(service, "/token"), c.tokenCount);
    EXPECT_EQ(Count(service, "/v2/"), c.reportCount);
    EXPECT_THAT(other_.Requests(), testing::IsEmpty());
    for (const httplib::Request& request : service.Requests()) {
      const bool toToken = request.path == "/token";
      EXPECT_EQ(request.body.find("grant_of.the") != std::string::npos, toToken);
      EXPECT_EQ(request.get_header_value("Authorization"),
                toToken ? "" : std::string("Bearer ") + kToken);
      EXPECT_EQ(request.target.find(kToken), std::string::npos);
    }
  }
}

TEST_F(GrantSecrets, AreNotShownEvenIfTheServiceRepeatsThem) {
  const std::pair<const char*, const char*> kEchoes[] = {
      {kEchoedGrant, kGoodReport}, {kGrantForError, kGoodReport}, {kGoodToken, kEchoedToken}};
  for (const auto& [token, report] : kEchoes) {
    const ListeningServer service(Service({token}, {report}));
    const auto [status, said] =
        Check(kGrantName,
              home_.WholeEnvironment(service.Host("localhost"), run_.Folder.File("authority.pem")));
    EXPECT_EQ(status, 3);
    EXPECT_THAT(said, HasSubstr("refused the sign-in.\nlocalhost"));
    EXPECT_THAT(said, Not(HasSubstr(kToken)));
    EXPECT_THAT(said, Not(HasSubstr(kRefreshToken)));
  }
}

TEST_F(GrantSecrets, AreNotBlamedForWhatIsThePackagersAffair) {
  const std::pair<const char*, const char*> kRefusals[] = {{kServiceIsOff, "(SERVICE_DISABLED): m"},
                                                           {kServiceIsOff, "own registration"},
                                                           {kBusyForLong, "asked as often"}};
  for (const auto& [report, words] : kRefusals) {
    const ListeningServer service(Service({kGoodToken}, {report}));
    const auto [status, said] =
        Check(kGrantName,
              home_.WholeEnvironment(service.Host("localhost"), run_.Folder.File("authority.pem")));
    EXPECT_EQ(status, report == kServiceIsOff ? 3 : 2);
    EXPECT_THAT(said, HasSubstr(words));
    EXPECT_THAT(said, Not(HasSubstr("Connect the account again")));
  }
}

TEST_F(GrantSecrets, AreReplacedByWhatCanBeReadAgainAlone) {
  const std::pair<std::string, const char*> kTokens[] = {{std::string(7 << 10, 't'), "0"},
                                                         {std::string((16 << 10) + 1, 't'), "2"},
                                                         {std::string(70'000, 't'), "2"},
                                                         {"t\\u0000", "2"},
                                                         {"t\\n", "2"},
                                                         {"\\u00e4", "2"}};
  for (const auto& [token, code] : kTokens) {
    const std::string before = *ReadWhole(home_.GrantPath());
    const std::string answer = kGoodToken;
    const ListeningServer service(
        Service({answer.substr(0, answer.size() - 1) + R"(,"refresh_token":")" + token + R"("})"},
                {kGoodReport}));
    EXPECT_EQ(FetchCode(service), code) << token.substr(0, 9);
    EXPECT_EQ(*ReadWhole(home_.GrantPath()) == before, *code != '0') << token.substr(0, 9);
    const ListeningServer next(Service({kGoodToken}, {kGoodReport}));
    EXPECT_EQ(FetchCode(next), "0") << "after " << token.substr(0, 9);
  }
}

}  // namespace
}  // namespace quillbox

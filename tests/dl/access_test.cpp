// Access to the demo service's API: who is let in, and for how long.
#include <gtest/gtest.h>

#include "authorization.h"
#include "grants.h"

namespace quillbox {
namespace {

using std::chrono::seconds;

// The example of RFC 7636, appendix B.
constexpr const char* kVerifier = "dBjftJeZ4CVP-mB92K27uhbUJU1p1r_wW1gFWFOEjXk";
constexpr const char* kChallenge = "E9Melhoa2OwvFrEMTJguCHaoeK1t8URWbuGJSstw-cM";
constexpr const char* kRedirect = "http://127.0.0.1:4711/done";

TEST(Authorization, LeadsToProgramsOnThisMachineAlone) {
  struct Case {
    const char *redirect, *error;  // error: null when nobody may be sent there
    std::pair<const char*, const char*> change = {"state", "a b"};
  };
  const Case kCases[] = {
      {kRedirect, ""},
      {"http://[::1]:80", ""},
      {"http://localhost/x?y=z", ""},
      {"https://elsewhere.test/", nullptr},
      {"http://127.0.0.1.elsewhere.test/", nullptr},
      {"http://127.0.0.1:80@elsewhere.test/", nullptr},
      {"", nullptr},
      {kRedirect, nullptr, {"client_id", "other"}},
      {kRedirect, "invalid_scope", {"scope", "everything"}},
      {kRedirect, "unsupported_response_type", {"response_type", "token"}},
      {kRedirect, "invalid_request", {"code_challenge", ""}},
      {kRedirect, "invalid_request", {"code_challenge_method", "S512"}},
  };
  for (const Case& c : kCases) {
    std::map<std::string, std::string> fields = {{"client_id", "me"},
                                                 {"redirect_uri", c.redirect},
                                                 {"response_type", "code"},
                                                 {"scope", "x https://h/adsense.readonly"},
                                                 {"code_challenge", kChallenge},
                                                 {"code_challenge_method", "S256"}};
    fields[c.change.first] = c.change.second;
    const auto wish = ParseAuthorization({fields.begin(), fields.end()}, "me");
    ASSERT_EQ(wish.has_value(), c.error != nullptr) << c.redirect << " " << c.change.second;
    if (wish) {
      EXPECT_EQ(wish->Error, c.error) << c.redirect << " " << c.change.second;
    }
  }
  Authorization wish;
  wish.RedirectUri = "http://localhost/x?y=z";
  wish.State = "a&b";
  EXPECT_EQ(RedirectWith(wish, "code", "1/2"), "http://localhost/x?y=z&code=1%2F2&state=a%26b");
}

TEST(Code, HoldsOnceAndWithItsVerifierAndRedirectAlone) {
  EXPECT_TRUE(Verifies(kVerifier, ChallengeMethod::kPlain, kVerifier));
  Grants grants({}, seconds(3600));
  Authorization wish;
  wish.RedirectUri = kRedirect;
  wish.Challenge = kChallenge;
  wish.Method = ChallengeMethod::kS256;
  const std::string code = grants.NewCode("a@b", wish);
  EXPECT_FALSE(grants.Redeem(code, kRedirect, std::string(43, 'x')));
  EXPECT_FALSE(grants.Redeem(code, "http://127.0.0.1:1/", kVerifier));
  const auto tokens = grants.Redeem(code, kRedirect, kVerifier);
  ASSERT_TRUE(tokens);
  EXPECT_EQ(grants.AccountOf(tokens->Access), "a@b");
  EXPECT_FALSE(grants.Redeem(code, kRedirect, kVerifier));
  EXPECT_EQ(grants.AccountOf(tokens->Access), "") << "somebody else knows the code";
  EXPECT_FALSE(grants.Refresh(tokens->Grant));
}

TEST(Rotation, PutsANewGrantInThePlaceOfEachThatIsUsed) {
  for (const OnRefresh onRefresh : {OnRefresh::kNewGrant, OnRefresh::kNewGrantOnce}) {
    Grants grants({{"old", "c@d"}, {"other", "c@d"}}, seconds(3600), onRefresh);
    const auto first = grants.Refresh("old");
    ASSERT_TRUE(first);
    const auto second = grants.Refresh(first->Grant);
    ASSERT_TRUE(second);
    EXPECT_EQ(grants.AccountOf(first->Access), "c@d") << "access tokens stay";
    EXPECT_FALSE(grants.Refresh("old"));
    const bool stays = onRefresh == OnRefresh::kNewGrant;
    EXPECT_EQ(grants.AccountOf(first->Access), stays ? "c@d" : "") << "used twice";
    EXPECT_EQ(grants.Revoke(second->Grant), stays);
    EXPECT_EQ(grants.AccountOf(first->Access), "");
    EXPECT_TRUE(grants.Refresh("other"));
  }
}

TEST(Revocation, TakesAlongWhatThePersonGrantedIfItIsToldTo) {
  for (const OnRevoke onRevoke : {OnRevoke::kGrant, OnRevoke::kPerson}) {
    Grants grants({{"a", "c@d"}, {"b", "c@d"}, {"other", "e@f"}}, seconds(3600),
                  OnRefresh::kKeepGrant, onRevoke);
    EXPECT_FALSE(grants.Revoke("unknown"));
    EXPECT_TRUE(grants.Revoke(grants.Refresh("a")->Access));
    EXPECT_FALSE(grants.Refresh("a"));
    EXPECT_EQ(grants.Refresh("b").has_value(), onRevoke == OnRevoke::kGrant);
    EXPECT_TRUE(grants.Refresh("other"));
  }
}

}  // namespace
}  // namespace quillbox

// Access to the demo service's API: who is let in, for how long, and what it is told.
#include <gtest/gtest.h>

#include "api/publishers.h"
#include "oauth/authorization.h"
#include "oauth/grants.h"

namespace quillbox {
namespace {

using std::chrono::seconds;

// The example of RFC 7636, appendix B.
constexpr const char* kVerifier = "dBjftJeZ4CVP-mB92K27uhbUJU1p1r_wW1gFWFOEjXk";
constexpr const char* kChallenge = "E9Melhoa2OwvFrEMTJguCHaoeK1t8URWbuGJSstw-cM";
constexpr const char* kRedirect = "http://127.0.0.1:4711/done";

TEST(CodeChallenge, IsMadeFromTheVerifier) {
  EXPECT_TRUE(Verifies(kVerifier, ChallengeMethod::kS256, kChallenge));
  EXPECT_TRUE(Verifies(kVerifier, ChallengeMethod::kPlain, kVerifier));
  EXPECT_FALSE(Verifies(kVerifier, ChallengeMethod::kPlain, kChallenge));
  EXPECT_FALSE(Verifies("too-short", ChallengeMethod::kPlain, "too-short"));
  EXPECT_FALSE(Verifies(std::string(kVerifier) + "=", ChallengeMethod::kS256, kChallenge));
}

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

TEST(FormFields, AreDecodedAndCutAtTheFirstSign) {
  const FormFields fields = QueryFields("/p?filters=A==B&x=%3d+%zz&x=2&&y");
  EXPECT_EQ(FieldOf(fields, "filters"), "A==B");
  EXPECT_EQ(FieldOf(fields, "x"), "= %zz");
  EXPECT_EQ(fields.count("x"), 2U);
  EXPECT_EQ(fields.size(), 4U);
}

class Granting : public testing::Test {
 protected:
  std::string NewCode() {
    Authorization wish;
    wish.RedirectUri = kRedirect;
    wish.Challenge = kChallenge;
    wish.Method = ChallengeMethod::kS256;
    return grants_.NewCode("a@b", wish);
  }

  Grants grants_{{{"old", "c@d"}}, seconds(3600)};
};

TEST_F(Granting, ACodeHoldsOnceAndWithItsVerifierAndRedirectAlone) {
  const std::string code = NewCode();
  EXPECT_EQ(grants_.OwnerOf(code), "a@b");
  EXPECT_FALSE(grants_.Redeem(code, kRedirect, std::string(43, 'x')));
  EXPECT_FALSE(grants_.Redeem(code, "http://127.0.0.1:1/", kVerifier));
  const auto tokens = grants_.Redeem(code, kRedirect, kVerifier);
  ASSERT_TRUE(tokens);
  EXPECT_EQ(grants_.AccountOf(tokens->Access), "a@b");
  EXPECT_FALSE(grants_.Redeem(code, kRedirect, kVerifier));
  EXPECT_EQ(grants_.AccountOf(tokens->Access), "") << "somebody else knows the code";
  EXPECT_FALSE(grants_.Refresh(tokens->Grant));
}

TEST_F(Granting, ARevokedGrantTakesItsTokensAlong) {
  const auto first = grants_.Refresh("old");
  const auto second = grants_.Refresh("old");
  ASSERT_TRUE(first && second);
  EXPECT_EQ(grants_.AccountOf(second->Access), "c@d");
  EXPECT_TRUE(grants_.Revoke(first->Access));
  EXPECT_EQ(grants_.AccountOf(second->Access), "");
  EXPECT_FALSE(grants_.Refresh("old"));
  EXPECT_FALSE(grants_.Revoke("old"));
}

TEST(Publishers, ComeInPages) {
  const Publishers publishers({"a@b", "c@d"}, 3);
  const auto its = publishers.Of("c@d");
  ASSERT_EQ(its.size(), 3U);
  EXPECT_FALSE(its[1].Ready);
  EXPECT_TRUE(its[2].Ready);
  EXPECT_EQ(publishers.Find(its[2].Id)->Email, "c@d");
  EXPECT_FALSE(publishers.Find("pub-7"));
  const auto holds = [&](const char* size, const char* token, const std::string& text) {
    return PublisherPageJson(its, size, token, 2).value_or("wrong").find(text) != std::string::npos;
  };
  EXPECT_TRUE(holds("", "", "\"nextPageToken\": \"2\""));
  EXPECT_TRUE(holds("1", "1", "\"nextPageToken\": \"2\""));
  EXPECT_TRUE(holds("9", "2", its[2].Id));
  EXPECT_FALSE(holds("9", "2", "nextPageToken"));
  EXPECT_TRUE(holds("x", "", "wrong"));
  EXPECT_TRUE(holds("", "4", "wrong"));
}

}  // namespace
}  // namespace quillbox

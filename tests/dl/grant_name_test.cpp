// The name of a grant in the place of a password can be stored and sent; the grant itself, kept.
#include "text/grant_name.h"

#include <gtest/gtest.h>

#include "api/tokens.h"
#include "config/account_list.h"
#include "text/escaping.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

TEST(GrantName, IsStoredAnywhereInTheListAndComesBack) {
  for (unsigned first = 0; first < 256; ++first) {  // every letter in every place
    std::array<unsigned char, kGrantNameLetters> random{};
    for (std::size_t i = 0; i < random.size(); ++i) {
      random[i] = static_cast<unsigned char>(first + i * 7);
    }
    const std::string name = GrantName(random);
    ASSERT_TRUE(IsGrantName(name)) << name;
    const std::string stored = ScrambleText(name);
    ASSERT_EQ(stored.size(), name.size()) << name << ": a code leaves the range";
    EXPECT_EQ(stored.find('|'), std::string::npos) << name << " as " << stored;
    EXPECT_EQ(UnscrambleText(stored), name);
    EXPECT_EQ(DecodeFormValue(EncodeFormValue(name)), name);
    EXPECT_EQ(SplitText(stored + "|||" + stored + "|||x", kListSeparator),
              (std::vector<std::string>{stored, stored, "x"}));
  }
}

TEST(GrantText, ComesBackAndNothingElseIsAGrant) {
  const Grant whole{.RefreshToken = "1//a\"b\\",
                    .Client = {"id", ""},
                    .Account = "accounts/pub-1",
                    .Created = std::chrono::year(2019) / 3 / 1};
  const Grant back = ParseGrant(GrantText(whole)).value();
  EXPECT_EQ(back.RefreshToken + back.Client.Id + back.Client.Secret + back.Account,
            "1//a\"b\\idaccounts/pub-1");
  EXPECT_EQ(back.Created, whole.Created);
  Grant ageless = whole, misled = whole;
  ageless.Created.reset();
  EXPECT_EQ(ParseGrant(GrantText(ageless)).value().Created, std::nullopt);
  misled.Account = "accounts/../../x";
  for (const std::string& text :
       {std::string(), std::string("[]"), GrantText(Grant{}), GrantText(misled),
        GrantText(whole) + "x", std::string(R"({"refresh_token":7,"client_id":"a"})")}) {
    EXPECT_FALSE(ParseGrant(text)) << text;
  }
}

}  // namespace
}  // namespace quillbox

// What is heard from the consent page, and what the person is asked then.
#include <gmock/gmock.h>

#include "oauth/browser_pages.h"
#include "oauth/consent.h"

namespace quillbox {
namespace {

TEST(Redirect, IsReadFromTheHeadOfARequest) {
  const std::pair<const char*, const char*> kCases[] = {
      // state, code, error
      {"GET /?code=4%2F0a&state=s HTTP/1.1\r\nHost: x\r\n\r\n", "s|4/0a|"},
      {"GET /?state=s%2&error=access_denied&iss=https://x HTTP/1.1\r\n\r\n", "s%2||access_denied"},
      {"GET /?state=a+b&code=%41%4&x&=y HTTP/1.0\r\n\r\n", "a b|A%4|"},
      {"GET /?code=c HTTP/1.1\r\n\r\n", "none"},
      {"GET /?state=s HTTP/1.1\r\n\r\n", "none"},
      {"GET /?state=s&code=c&error=e HTTP/1.1\r\n\r\n", "none"},
      {"GET /favicon.ico HTTP/1.1\r\n\r\n", "none"},
      {"GET /x?state=s&code=c HTTP/1.1\r\n\r\n", "none"},
      {"POST /?state=s&code=c HTTP/1.1\r\n\r\n", "none"},
      {"GET /?state=s&code=c\r\n HTTP/1.1\r\n\r\n", "none"},
      {"GET /? HTTP/1.1", "none"},
      {"", "none"}};
  for (const auto& [head, said] : kCases) {
    const auto query = ReadPageRequest(head);
    const auto answer = query ? ReadConsent(*query) : std::nullopt;
    EXPECT_EQ(answer ? answer->State + "|" + answer->Code + "|" + answer->Error : "none", said)
        << head;
  }
  EXPECT_FALSE(IsWholeHead("GET / HTTP/1.1\r\n"));
  EXPECT_TRUE(IsWholeHead("GET / HTTP/1.1\r\n\r\n"));
}

TEST(BrowserPages, ShowNamesOfAccountsAsTheyAre) {
  const PublisherAccount kAccounts[] = {{"accounts/pub-1", "<b>Tom's \"A&B\"", "READY", {}},
                                        {"accounts/pub-2", "", "READY", {}}};
  const std::string page = ChoicePage("st-ate", kAccounts);
  for (const char* const part :
       {"name=\"state\" value=\"st-ate\">",
        "value=\"accounts/pub-1\">&#60;b&#62;Tom&#39;s &#34;A&#38;B&#34;<small>pub-1</small>",
        "value=\"accounts/pub-2\">pub-2</button>"}) {
    EXPECT_THAT(page, testing::HasSubstr(part));
  }
}

TEST(BrowserPages, LoadNothingAndFitAPhone) {
  for (const std::string& page : {SentencePage("A sentence."), ChoicePage("s", {})}) {
    EXPECT_THAT(page, testing::HasSubstr("width=device-width"));
    for (const char* const outside : {"http", "src=", "url(", "@import", "<script", "<link"}) {
      EXPECT_THAT(page, testing::Not(testing::HasSubstr(outside)));
    }
  }
}

}  // namespace
}  // namespace quillbox

// What is heard from the consent page, and what the person is asked then.
#include <gmock/gmock.h>
#include <sys/socket.h>

#include <ctime>
#include <deque>

#include "browser/loopback_server.h"
#include "dl/support/listening_program.h"
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

class LoopbackServerTest : public testing::Test {
 protected:
  // A browser that says this, or connects and says nothing.
  const LoopbackSocket& Visit(const std::string& head = "") {
    const LoopbackSocket& visitor = visitors_.emplace_back();
    const std::string address = server_.Address();
    visitor.Connect(std::stoi(address.substr(address.rfind(':') + 1)));
    ::send(visitor.Number(), head.data(), head.size(), 0);
    return visitor;
  }

  bool IsHeard(std::chrono::milliseconds within) {
    const auto any = [](const QueryFields&) { return true; };
    return server_.Await(any, LoopbackServer::Clock::now() + within).has_value();
  }

  static bool IsSentAway(const LoopbackSocket& visitor) {
    char byte = 0;
    return ::recv(visitor.Number(), &byte, 1, MSG_DONTWAIT) == 0;
  }

  LoopbackServer server_;
  std::deque<LoopbackSocket> visitors_;
};

TEST_F(LoopbackServerTest, KeepsTheLatestSixteenVisitors) {
  ASSERT_TRUE(server_.Listens());
  for (int i = 0; i < 16; ++i) Visit();
  Visit("GET /?state=s&code=c HTTP/1.1\r\n\r\n");
  EXPECT_TRUE(IsHeard(std::chrono::seconds(20)));
  EXPECT_TRUE(IsSentAway(visitors_[0]));
  EXPECT_FALSE(IsSentAway(visitors_[1]));
}

TEST_F(LoopbackServerTest, SleepsWhileNobodySpeaks) {
  Visit();
  EXPECT_FALSE(IsHeard(std::chrono::milliseconds(1)));
  const std::clock_t before = std::clock();
  EXPECT_FALSE(IsHeard(std::chrono::milliseconds(500)));
  EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 10);
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

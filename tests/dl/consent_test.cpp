// What is said to the consent page, and what is heard from it.
#include <gtest/gtest.h>

#include "oauth/consent_address.h"
#include "oauth/redirect_request.h"

namespace quillbox {
namespace {

TEST(ConsentAddress, HoldsTheQuestion) {
  ConsentQuestion question{
      "https://h/authorize", "id&x", "a.readonly", "http://127.0.0.1:1/", "st-ate", "chal", ""};
  const std::string kStart =
      "https://h/authorize?response_type=code&client_id=id%26x"
      "&redirect_uri=http%3A%2F%2F127.0.0.1%3A1%2F&scope=a.readonly&state=st-ate"
      "&code_challenge=chal&code_challenge_method=S256";
  EXPECT_EQ(ConsentAddress(question), kStart);
  question.Email = "a@b.test";
  EXPECT_EQ(ConsentAddress(question), kStart + "&login_hint=a%40b.test");
}

TEST(Redirect, IsReadFromTheHeadOfARequest) {
  struct Case {
    const char *head, *said;  // state, code, error
  };
  const Case kCases[] = {
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
  for (const Case& c : kCases) {
    const auto answer = ReadRedirect(c.head);
    EXPECT_EQ(answer ? answer->State + "|" + answer->Code + "|" + answer->Error : "none", c.said)
        << c.head;
  }
  EXPECT_FALSE(IsWholeHead("GET / HTTP/1.1\r\n"));
  EXPECT_TRUE(IsWholeHead("GET / HTTP/1.1\r\n\r\n"));
}

}  // namespace
}  // namespace quillbox

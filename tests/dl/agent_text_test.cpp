// How the fetch program reads its argument.
#include "request/agent_text.h"

#include <gtest/gtest.h>

#include "request/sign_in_form.h"
#include "request/web_address.h"
#include "text/form_encoding.h"

namespace quillbox {
namespace {

TEST(AgentText, PathsAreCutFromTheRight) {
  struct Case {
    const char *text, *request, *data, *log;
  };
  const Case kCases[] = {
      {"https://h/v|/a b/x.dat|/a b/x.log", "https://h/v", "/a b/x.dat", "/a b/x.log"},
      {"Email=a&Passwd=|x|y|%#%https://h|/d|/l", "Email=a&Passwd=|x|y|%#%https://h", "/d", "/l"},
      {"|/d|/l", "", "/d", "/l"},
  };
  for (const Case& c : kCases) {
    const auto parts = SplitAgentText(c.text);
    ASSERT_TRUE(parts) << c.text;
    EXPECT_EQ(parts->Request, c.request) << c.text;
    EXPECT_EQ(parts->DataPath, c.data) << c.text;
    EXPECT_EQ(parts->LogPath, c.log) << c.text;
  }
  for (const char* text :
       {"", "|", "https://h", "https://h|/d", "https://h||/l", "https://h|/d|"}) {
    EXPECT_FALSE(SplitAgentText(text)) << text;
  }
}

TEST(AgentText, WhatTheProgramEncodesComesBack) {
  const char* const kTexts[] = {"rosemary",  "a|b",      "%#%",   "%",
                                "%#",        "#%",       "%41",   "%%#%%",
                                "&Passwd=x", "Email=",   "a b+c", "\xE4\xF6\xFC\x80",
                                "|",         "%#%|%#%|", "",      "100%"};
  for (const std::string email : kTexts) {
    for (const std::string password : kTexts) {
      const auto request =
          ParseAgentRequest("Email=" + EncodeFormValue(email) +
                            "&Passwd=" + EncodeFormValue(password) + "%#%" + "https://h/p?a=b&c=d");
      ASSERT_TRUE(request && request->SignIn) << email << " and " << password;
      EXPECT_EQ(request->SignIn->Email, email) << password;
      EXPECT_EQ(request->SignIn->Password, password) << email;
      EXPECT_EQ(request->Address, "https://h/p?a=b&c=d") << email << " and " << password;
    }
  }
}

TEST(AgentText, PlainRequestsSignNobodyIn) {
  const auto request = ParseAgentRequest("https://h/versionqb.txt");
  ASSERT_TRUE(request);
  EXPECT_FALSE(request->SignIn);
  EXPECT_EQ(request->Address, "https://h/versionqb.txt");
}

TEST(AgentText, HalfARequestIsNone) {
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
  struct Case {
    const char *address, *host;
  };
  const Case kCases[] = {
      {"https://h.example:8443/p?q", "h.example:8443"},
      {"HTTPS://h?q", "h"},
      {"http://[::1]:80/", "[::1]:80"},
      {"https://good@evil/", nullptr},
      {"https://evil\\@good/", nullptr},
      {"https:///p", nullptr},
      {"https://a b/", nullptr},
      {"ftp://h/", nullptr},
      {"h/p", nullptr},
      {"", nullptr},
  };
  for (const Case& c : kCases) {
    const auto address = ParseWebAddress(c.address);
    ASSERT_EQ(address.has_value(), c.host != nullptr) << c.address;
    if (address) {
      EXPECT_EQ(address->Host, c.host) << c.address;
    }
  }
  EXPECT_EQ(SignInAddress("h:1"), "https://h:1/accounts/ServiceLoginAuth");
}

}  // namespace
}  // namespace quillbox

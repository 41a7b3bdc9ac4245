// Texts as requests carry them.
#include <gtest/gtest.h>

#include <random>

#include "text/escaping.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

TEST(FormEncoding, KnownTexts) {
  struct Case {
    const char* Text;
    const char* Encoded;
  };
  const Case kCases[] = {
      {"", ""},
      {"a.b", "%61%2E%62"},
      {"J", "%4A"},
      {"j", "%6a"},
      {"O", "%4F"},
      {"o", "%6f"},
      {"09", "%30%39"},
      {"_+-&/?@ .=", "%5F%2B%2D%26%2F%3F%40%20%2E%3D"},
      {"%", "%"},
      {"%41", "%%34%31"},
      {"|:;,!\"#\r\n", "|:;,!\"#\r\n"},
      {"\xE9\xFF", "\xE9\xFF"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(EncodeFormValue(c.Text), c.Encoded) << c.Text;
    EXPECT_EQ(DecodeFormValue(c.Encoded), c.Text) << c.Encoded;
  }
}

TEST(FormEncoding, DecodingLeavesWhatNoEncoderWrote) {
  for (const char* text : {"%", "%%", "%4", "a%", "%G1", "%1G", "100%"}) {
    EXPECT_EQ(DecodeFormValue(text), text);
  }
}

TEST(FormEncoding, AnyTextComesBack) {
  std::mt19937_64 random(1);
  for (int round = 0; round < 2000; ++round) {
    std::string text(random() % 24, ' ');
    // Every other round is rich in what could be taken for an encoded character.
    for (char& c : text) c = round % 2 == 0 ? static_cast<char>(random()) : "%%%4aF|"[random() % 7];
    EXPECT_EQ(DecodeFormValue(EncodeFormValue(text)), text) << ::testing::PrintToString(text);
  }
}

TEST(GrantName, IsToldFromPasswords) {
  EXPECT_TRUE(IsGrantName("grant:ABCDEFGHIJ27"));
  for (const char* password :
       {"grant:ABCDEFGHIJ2", "grant:ABCDEFGHIJ277", "grant:abcdefghij27", "grant:ABCDEFGHIJ28",
        "Grant:ABCDEFGHIJ27", "grant:../../../ABC", "ABCDEFGHIJ27", "", "grant:"}) {
    EXPECT_FALSE(IsGrantName(password)) << password;
  }
}

}  // namespace
}  // namespace quillbox

#include <gtest/gtest.h>

#include "quillbox-replay/formats/json.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

TEST(JsonReader, TextsHoldEveryCharacterOfTheCodePage) {
  std::string all;
  for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
  std::string json;
  JsonWriter(json).Text(all);
  const JsonLine line = ReadJsonLine(json);
  EXPECT_EQ(line.NotJson, "");
  EXPECT_EQ(line.Fault, "");
  EXPECT_EQ(line.Value.Text, all);
}

TEST(JsonReader, RefusesWhatIsNotJson) {
  const char* const texts =
      R"(nope ~ { ~ [1,] ~ {"a" 1} ~ {a:1} ~ 'a' ~ "a ~ "\x" ~ "\ud83d" ~ "\ud83d\u0041" ~ )"
      R"(01 ~ 1. ~ 120e+ ~ - ~ 1 1 ~ NaN ~ {} x)";
  std::vector<std::string> lines = SplitText(texts, " ~ ");
  lines.insert(lines.end(), {"", " ", "\"a\tb\"", "\xEF\xBB\xBF{}", "\"\xFF\"", "\"\xC0\x80\"",
                             "\"\xED\xA0\x80\"", "\"\xF4\x90\x80\x80\"", "\"\xE2\x82"});
  lines.emplace_back("{}\0", 3);
  lines.emplace_back("\"a\0b\"", 5);
  lines.emplace_back(100000, '[');
  for (const std::string& line : lines) {
    EXPECT_NE(ReadJsonLine(line).NotJson, "") << line.substr(0, 40);
  }
}

TEST(JsonReader, TellsFaultsFromWhatIsNotJson) {
  const std::pair<bool, const char*> kCases[] = {
      {true, R"(["\u2192"] ~ ["→"] ~ ["😀"] ~ ["\ud83d\ude00"] ~ ["\ude00"] ~ {"a":1,"a":2} ~ )"
             R"({"→":1} ~ {"a":{"id":"→"}})"},
      {false, R"({"a":1,"A":2} ~ {"id":"→"} ~ {"id":"\ude00"} ~ {"id":{"a":1,"a":2}} ~ )"
              R"(["\u0081\u20ac\u0000"])"}};
  for (const auto& [faulty, lines] : kCases) {
    for (const std::string& text : SplitText(lines, " ~ ")) {
      const JsonLine line = ReadJsonLine(text);
      EXPECT_EQ(line.NotJson, "") << text;
      EXPECT_EQ(!line.Fault.empty(), faulty) << text << ": " << line.Fault;
    }
  }
}

TEST(JsonWriter, NumbersAreShortAndReadBackTheSame) {
  for (const char* text : {"0", "-0", "1234", "-2.5", "0.1", "100000", "0.000001", "1e+300",
                           "5e-324", "0.30000000000000004", "123456789012345680"}) {
    std::string json;
    JsonWriter(json).Number(std::strtod(text, nullptr));
    EXPECT_EQ(json, text);
  }
}

}  // namespace
}  // namespace quillbox

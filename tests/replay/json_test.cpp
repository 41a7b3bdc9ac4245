#include <gtest/gtest.h>

#include "quillbox-replay/json_reader.h"
#include "quillbox-replay/json_writer.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

TEST(JsonReader, ReadsEveryKindOfValue) {
  const JsonLine line = ReadJsonLine(
      R"( {"a" : [null, true, false, -1.5e3, ""], "b": {"c":"\"\\\/\b\f\n\r\tA€"} } )");
  ASSERT_EQ(line.NotJson, "");
  ASSERT_EQ(line.Fault, "");
  const JsonValue* a = line.Value.Find("a");
  ASSERT_NE(a, nullptr);
  ASSERT_EQ(a->Items.size(), 5U);
  EXPECT_EQ(a->Items[0].Kind, JsonValue::Type::kNull);
  EXPECT_TRUE(a->Items[1].Truth);
  EXPECT_EQ(a->Items[2].Kind, JsonValue::Type::kBoolean);
  EXPECT_FALSE(a->Items[2].Truth);
  EXPECT_EQ(a->Items[3].Source, "-1.5e3");
  EXPECT_EQ(a->Items[4].Kind, JsonValue::Type::kString);
  const JsonValue* c = line.Value.Find("b")->Find("c");
  ASSERT_NE(c, nullptr);
  EXPECT_EQ(c->Text, "\"\\/\b\f\n\r\tA\x80");
}

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
      R"(nope ~ nul ~ { ~ [1,] ~ [1 2] ~ {"a":} ~ {"a" 1} ~ {a:1} ~ {"a":1,} ~ 'a' ~ "a ~ "\x" ~ )"
      R"("\u12g4" ~ "\ ~ "\ud83d" ~ "\ud83d\u0041" ~ 01 ~ 1. ~ .5 ~ +1 ~ 12. ~ 120e+ ~ -01 ~ 1e ~ )"
      R"(- ~ 1 1 ~ NaN ~ {} x)";
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

TEST(JsonReader, KeepsNumbersOfAnySizeAsTheyStand) {
  const std::string digits(400, '9');
  const std::string kCases[] = {"0",          "-0.0",           "10",   "1e999",         "0e999",
                                "-1.50E+400", "1e-99999999999", digits, digits + ".5e-7"};
  for (const std::string& number : kCases) {
    const std::string text = "[ " + number + " ," + number + "]";
    const JsonLine line = ReadJsonLine(text);
    ASSERT_EQ(line.NotJson, "") << number;
    EXPECT_EQ(line.Value.Source, text);
    ASSERT_EQ(line.Value.Items.size(), 2U) << number;
    EXPECT_EQ(line.Value.Items[0].Source, number);
    EXPECT_EQ(line.Value.Items[1].Source, number);
  }
}

TEST(JsonReader, TellsFaultsFromWhatIsNotJson) {
  struct Case {
    const char* Line;
    bool Faulty;
  };
  const Case kCases[] = {
      {R"(["\u2192"])", true},
      {R"(["→"])", true},
      {R"(["😀"])", true},
      {R"(["\ud83d\ude00"])", true},
      {R"(["\ude00"])", true},
      {R"({"a":1,"a":2})", true},
      {R"({"→":1})", true},
      {R"({"a":1,"A":2})", false},
      {R"({"id":"→"})", false},
      {R"({"id":"\ude00"})", false},
      {R"({"id":{"a":1,"a":2}})", false},
      {R"({"a":{"id":"→"}})", true},
      {R"(["\u0081\u20ac\u0000"])", false},
  };
  for (const Case& c : kCases) {
    const JsonLine line = ReadJsonLine(c.Line);
    EXPECT_EQ(line.NotJson, "") << c.Line;
    EXPECT_EQ(!line.Fault.empty(), c.Faulty) << c.Line << ": " << line.Fault;
  }
}

TEST(JsonWriter, NumbersAreShortAndReadBackTheSame) {
  struct Case {
    double Number;
    const char* Text;
  };
  const Case kCases[] = {{0, "0"},
                         {-0.0, "-0"},
                         {1234, "1234"},
                         {-2.5, "-2.5"},
                         {0.1, "0.1"},
                         {1e5, "100000"},
                         {1e-6, "0.000001"},
                         {1e300, "1e+300"},
                         {5e-324, "5e-324"},
                         {0.30000000000000004, "0.30000000000000004"},
                         {123456789012345680.0, "123456789012345680"}};
  for (const Case& c : kCases) {
    std::string json;
    JsonWriter(json).Number(c.Number);
    EXPECT_EQ(json, c.Text);
    EXPECT_EQ(std::strtod(json.c_str(), nullptr), c.Number) << json;
  }
}

}  // namespace
}  // namespace quillbox

#include <gmock/gmock.h>

#include "replay/answer.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Requests, IdComesBackUnchanged) {
  const char* const ids =
      R"(1 ~ -0.0 ~ 1.50 ~ 123456789012345678901234567890 ~ 1e999 ~ -1.50E+400 ~ 1e-99999999999 ~ )"
      R"(null ~ true ~ "" ~ "\u00e9 é → 😀 \ud83d\ude00 \ude00" ~ [1, {"b":[], "b":{}}])";
  for (const std::string& id : SplitText(ids, " ~ ")) {
    const std::string begin = R"({"ok":true,"id":)" + id + ",";
    EXPECT_THAT(
        Answer(R"({"op":"convert","function":"ScrambleText","argument":"a","id":)" + id + "}"),
        StartsWith(begin));
    EXPECT_THAT(Answer(R"({"id":)" + id + R"(,"op":"none"})"),
                StartsWith(R"({"ok":false,"id":)" + id + R"(,"error":")"));
  }
}

// A request of "convert" and one of "evaluate" that only lack these members.
std::string Convert(const std::string& members) {
  return R"("op":"convert","function":)" + members;
}
std::string Evaluate(const std::string& members) {
  return R"("op":"evaluate","region":"en-US","account":"","settings":{},)" + members;
}

TEST(Requests, FaultsAreToldWithTheId) {
  const std::string now = R"("now":"2007-01-31T09:05:00",)";
  const std::string sounds = R"("soundFiles":["","","","","",""],)";
  const std::string files = R"("files":{"content":null,"search":null,"referral":null})";
  struct Case {
    std::string Request;  // without the id
    const char* Error;    // a part of it
  };
  const Case kCases[] = {
      {R"("x":1)", R"(\"op\" is missing)"},
      {R"("op":"Evaluate")", R"(unknown op \"Evaluate\")"},
      {R"("op":"convert","op":"convert")", "twice"},
      {Convert(R"("ToLong","argument":"1")"), R"(\"region\" is missing)"},
      {Convert(R"("Nothing","argument":"1")"), "unknown function"},
      {Convert(R"("ToLong","argument":"→","region":"en-US")"), "windows-1252"},
      {Convert(R"("ToLong","argument":"1","region":"xx-XX")"), "unknown region"},
      {Convert(R"("ToLong","argument":"1","region":5)"), "a name or an object"},
      {Convert(R"("ToLong","argument":"1","region":{"decimal":5})"),
       R"(\"region.decimal\" must be a text)"},
      {Convert(R"("ToLong","argument":"1","region":{"currencyDecimals":1.5})"), "whole number"},
      {Convert(R"("ToLong","argument":"1","region":{"weekdays":["a"]})"), "must hold 7 texts"},
      {Convert(R"("NumberText","argument":"1","region":"en-US")"), "must be a number"},
      {Convert(R"("NumberText","argument":1e999,"region":"en-US")"), "range"},
      {Convert(R"("NumberText","argument":{"currency":"1.5"},"region":"en-US")"), "64 bits"},
      {Convert(R"("ShortDate","argument":"2007-02-30","region":"en-US")"), "date"},
      {Convert(R"("TimeText","argument":"24:00:00","use24Hour":true,"region":"en-US")"),
       "time of day"},
      {R"("op":"accountList","settings":{"A":{"b":1}})", R"(\"settings.A.b\" must be a text)"},
      {R"("op":"profile","text":"","steps":[["move","a","b"]])", "unknown step"},
      {Evaluate(R"("now":"2007-01-31 09:05:00","accounts":[],)" + sounds + files),
       R"(\"now\" must be)"},
      {Evaluate(now + R"("accounts":[],"soundFiles":[""],)" + files), "six texts"},
      {Evaluate(now + R"("accounts":[1],)" + sounds + files),
       R"(\"accounts\" must be a list of texts)"},
      {Evaluate(now + R"("accounts":[],)" + sounds + R"("files":{"content":null,"search":null})"),
       R"(\"files.referral\" is missing)"},
      {R"("op":"tooltipLayout","text":"","measure":{"description":1,"value":1,"height":1e300})",
       R"(\"measure.height\" can't hold lengths beyond)"},
      {R"("op":"tooltipPlacement","taskbar":[0,0,1,1],"screen":[-2e9,1],"window":[1,1])",
       R"(\"screen\" can't hold lengths beyond)"},
  };
  for (const Case& c : kCases) {
    const std::string answer = Answer(R"({"id":7,)" + c.Request + "}");
    EXPECT_THAT(answer, StartsWith(R"({"ok":false,"id":7,"error":")")) << c.Request;
    EXPECT_THAT(answer, HasSubstr(c.Error)) << c.Request;
  }
}

TEST(Requests, WhatIsNoRequestGetsNoId) {
  std::vector<std::string> lines = SplitText(
      R"(nope ~ { ~ [1] ~ 5 ~ {"id":1 ~ {"id":1,} ~ {"id" 1} ~ {id:1} ~ {'id':1} ~ {"id":01} ~ )"
      R"({"id":"\x"} ~ {"id":1.} ~ {"id":1e+} ~ {"id":NaN} ~ {"id":1} x)",
      " ~ ");
  lines.insert(lines.end(), {"", " ", "\"\xFF\"", "\xEF\xBB\xBF{}", "{\"id\":\"a\tb\"}",
                             "{\"id\":\"\xC0\x80\"}", "{\"id\":\"\xF4\x90\x80\x80\"}"});
  lines.emplace_back("{}\0", 3);
  lines.emplace_back(100'000, '[');
  for (const std::string& line : lines) {
    EXPECT_THAT(Answer(line), StartsWith(R"({"ok":false,"error":")")) << line.substr(0, 40);
  }
}

}  // namespace
}  // namespace quillbox

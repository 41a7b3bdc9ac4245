#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "replay/answer.h"

namespace quillbox {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Requests, IdComesBackUnchanged) {
  const char* const kCases[] = {
      "1",    "-0.0", "1.50", "123456789012345678901234567890",        "1e999",
      "null", "true", "\"\"", R"("\u00e9 é → 😀 \ud83d\ude00 \ude00")", R"([1, {"b":[], "b":{}}])"};
  for (const std::string id : kCases) {
    const std::string begin = R"({"ok":true,"id":)" + id + ",";
    EXPECT_THAT(
        Answer(R"({"op":"convert","function":"ScrambleText","argument":"a","id":)" + id + "}"),
        StartsWith(begin));
    EXPECT_THAT(Answer(R"({"id":)" + id + R"(,"op":"none"})"),
                StartsWith(R"({"ok":false,"id":)" + id + R"(,"error":")"));
  }
}

TEST(Requests, FaultsAreToldWithTheId) {
  struct Case {
    const char* Request;  // without the id
    const char* Error;    // a part of it
  };
  const Case kCases[] = {
      {R"("x":1)", R"(\"op\" is missing)"},
      {R"("op":5)", R"(\"op\" must be a text)"},
      {R"("op":"Evaluate")", R"(unknown op \"Evaluate\")"},
      {R"("op":"convert","op":"convert")", "twice"},
      {R"("op":"convert","function":"ToLong","region":"en-US")", R"(\"argument\" is missing)"},
      {R"("op":"convert","function":"ToLong","argument":"1")", R"(\"region\" is missing)"},
      {R"("op":"convert","function":"ToLong","argument":1,"region":"en-US")", "must be a text"},
      {R"("op":"convert","function":"Nothing","argument":"1")", "unknown function"},
      {R"("op":"convert","function":"ToLong","argument":"→","region":"en-US")", "windows-1252"},
      {R"("op":"convert","function":"ToLong","argument":"1","region":"xx-XX")", "unknown region"},
      {R"("op":"convert","function":"ToLong","argument":"1","region":5)", "a name or an object"},
      {R"("op":"convert","function":"ToLong","argument":"1","region":{"decimal":5})",
       R"(\"region.decimal\" must be a text)"},
      {R"("op":"convert","function":"ToLong","argument":"1","region":{"currencyDecimals":1.5})",
       "whole number"},
      {R"("op":"convert","function":"ToLong","argument":"1","region":{"weekdays":["a"]})",
       "must hold 7 texts"},
      {R"("op":"convert","function":"NumberText","argument":"1","region":"en-US")",
       "must be a number"},
      {R"("op":"convert","function":"NumberText","argument":1e999,"region":"en-US")", "range"},
      {R"("op":"convert","function":"NumberText","argument":{"currency":"1.5"},"region":"en-US")",
       "64 bits"},
      {R"("op":"convert","function":"CurrencyText","argument":null,"region":"en-US")",
       "a number or a text"},
      {R"("op":"convert","function":"ShortDate","argument":"2007-02-30","region":"en-US")", "date"},
      {R"("op":"convert","function":"TimeText","argument":"24:00:00","use24Hour":true,"region":"en-US")",
       "time of day"},
      {R"("op":"accountList","settings":{"A":"b"})", R"(\"settings.A\" must be an object)"},
      {R"("op":"accountList","settings":{"A":{"b":1}})", R"(\"settings.A.b\" must be a text)"},
      {R"("op":"accountList","settings":{"A":{"b":"1","b":"2"}})", "twice"},
      {R"("op":"profile","text":"","steps":[["read","a"]])", "too few or too many"},
      {R"("op":"profile","text":"","steps":[["move","a","b"]])", "unknown step"},
      {R"("op":"profile","text":"","steps":[{}])", "must be a list of texts"},
      {R"("op":"evaluate","region":"en-US","now":"2007-01-31 09:05:00","account":"","accounts":[],)"
       R"("settings":{},"soundFiles":["","","","","",""],"files":{"content":null,"search":null,"referral":null})",
       R"(\"now\" must be)"},
      {R"("op":"evaluate","region":"en-US","now":"2007-01-31T09:05:00","account":"","accounts":[],)"
       R"("settings":{},"soundFiles":[""],"files":{"content":null,"search":null,"referral":null})",
       "six texts"},
      {R"("op":"evaluate","region":"en-US","now":"2007-01-31T09:05:00","account":"","accounts":[1],)"
       R"("settings":{},"soundFiles":["","","","","",""],"files":{"content":null,"search":null,"referral":null})",
       R"(\"accounts\" must be a list of texts)"},
      {R"("op":"evaluate","region":"en-US","now":"2007-01-31T09:05:00","account":"","accounts":[],)"
       R"("settings":{},"soundFiles":["","","","","",""],"files":{"content":null,"search":null})",
       R"(\"files.referral\" is missing)"},
  };
  for (const Case& c : kCases) {
    const std::string answer = Answer(R"({"id":7,)" + std::string(c.Request) + "}");
    EXPECT_THAT(answer, StartsWith(R"({"ok":false,"id":7,"error":")")) << c.Request;
    EXPECT_THAT(answer, HasSubstr(c.Error)) << c.Request;
  }
}

TEST(Requests, WhatIsNoRequestGetsNoId) {
  for (const char* const line : {"", "{\"id\":1", "[1]", "5", "\"\xFF\""}) {
    EXPECT_THAT(Answer(line), StartsWith(R"({"ok":false,"error":")")) << line;
  }
}

}  // namespace
}  // namespace quillbox

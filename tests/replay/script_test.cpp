// Scripts: what they do, what comes out, and what is refused.
#include <gmock/gmock.h>

#include "replay/run_script.h"

namespace quillbox {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kMorning = R"(
# Two accounts, one of them refused; then a tray that restarts and a second start.
{"do":"host","seed":3,"time":"2007-01-31T09:05:00","region":"en-GB"}
{"do":"settings","values":{"General":{"CheckForNewVersion":"False"},"TrayTooltip":{"DataToDownload":"AdSense for Content"}}}
{"do":"account","name":"München","username":"ann","password":"x"}
{"do":"account","name":"two","username":"bob","password":"y"}
{"do":"agent","data":"h\n","log":"0","logAfter":"2s"}
{"do":"agent","username":"bob","log":"3","once":true}
{"do":"answer","to":"new releases","with":"No","after":"1s"}
{"do":"answer","to":"Greetings","with":"Yes"}
{"do":"start"}
{"do":"tray","it":"losesIcon","in":"4s"}
{"do":"menu","item":"RefreshNow"}
{"do":"start","in":"10s"}
{"do":"run","for":"1m"}
{"do":"show","what":"menu"}
{"do":"menu","item":"Exit"}
{"do":"menu","item":"Exit"}
)";

TEST(Script, TellsWhatHappenedAndWhen) {
  const std::vector<std::string> trace = TraceOf(kMorning);
  EXPECT_THAT(trace, Contains(R"({"at":"2007-01-31T09:05:01.000","what":"store",)"
                              R"("section":"Misc","key":"Runs","value":"1"})"));
  EXPECT_THAT(TextsOf(trace, {"answer", "form"}, true),
              ElementsAre("01.000 answer No", "01.000 answer Yes", "01.000 form Opts"));
  // The tray that lost its icon gets the last balloon's text with the new one.
  const auto refused = HasSubstr("incorrect username and/or password for the \"bob\"");
  EXPECT_THAT(TextsOf(trace, {"balloon"}), ElementsAre(refused, refused));
  // Later steps come in the middle of others.
  EXPECT_THAT(
      TextsOf(trace, {"tray"}),
      ElementsAre("tray add", "tray modify", "tray modify, no icon", "tray add", "tray delete"));
  EXPECT_THAT(TextsOf(trace, {"step"}, true), Contains("13.400 step 14 start"));
  EXPECT_THAT(TextsOf(trace, {"item"}), Contains(HasSubstr("Open AdSense Account > München")));
  EXPECT_THAT(trace.back(), HasSubstr("Exit, no program"));
  EXPECT_EQ(TextsOf(trace, {"exit"}).size(), 1U);
}

TEST(Script, TheSeedDecidesWhatIsLeftToChance) {
  std::string script = kMorning;
  script.insert(script.find("\"logAfter\""), "\"jitter\":\"4s\",");
  std::string otherSeed = script;
  otherSeed.replace(otherSeed.find("\"seed\":3"), 8, "\"seed\":4");
  EXPECT_EQ(TraceOf(script), TraceOf(script));
  EXPECT_NE(TraceOf(script), TraceOf(otherSeed));
}

TEST(Script, IsRefusedAsAWholeWithItsLine) {
  struct Case {
    std::string script;
    const char* error;
  };
  const Case kCases[] = {
      {Step("'do':'start'") + Step("'do':'begin'"), "line 2: unknown step \"begin\""},
      {"start", "line 1: not a JSON object"},
      {"\n{}", "line 2: \"do\" is missing"},
      {Step("'do':'run','for':'5 minutes'"),
       "line 1: \"for\" must be a duration such as \"1h30m\""},
      {Step("'do':'start','at':'1s'"), "line 1: \"at\" is not known here"},
      {Step("'do':'host','region':'xx'"), "line 1: \"region\" is not one of the built-in regions"},
      {Step("'do':'host','time':'2007-02-30T09:05:00'"),
       "line 1: \"time\" must be a time such as \"2007-01-31T09:05:00\""},
      {Step("'do':'tray','it':'flies'"), "line 1: \"it\" can't be \"flies\""},
      {Step("'do':'menu','item':'\xE4\xB8\xAD'"),
       "line 1: \"item\" holds a character outside of windows-1252"},
      {Step("'do':'settings','values':{'Misc':'x'}"), "line 1: \"Misc\" must be an object of keys"},
      {Step("'do':'press','form':'Opts'"), "line 1: \"button\" is missing"},
      {Step("'do':'hover','x':40000"), "line 1: \"x\" is off any screen"},
      {Step("'do':'start','do':'run'"), "line 1: an object holds a member twice"},
      {Step("'do':'start'") + Step("'do':'host'"), "line 2: \"host\" must be the first step"},
  };
  for (const Case& c : kCases) EXPECT_EQ(Refusal(c.script), c.error);
}

}  // namespace
}  // namespace quillbox

// Scripts: what they do, what comes out, and what is refused; with a person who uses the program's
// forms and its tray icon.
#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "quillbox-replay/formats/json.h"
#include "quillbox-replay/script/script_run.h"
#include "text/code_page.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// A person who has used the program before and starts it; single clicks lead to the maker's site.
constexpr const char* kUsedAndStarted =
    R"({"do":"settings","values":{"Misc":{"Runs":"2"},"General":{"CheckForNewVersion":"False","CheckPrompted":"True"},"TrayIcon":{"SingleAction":"Visit Tarnwick Works"}}}
{"do":"start"}
)";

// The trace of a script without faults.
std::vector<std::string> TraceOf(const std::string& script) {
  std::istringstream in(script);
  std::ostringstream out;
  std::string error;
  EXPECT_EQ(RunScript(in, out, error), kScriptDone) << error;
  std::vector<std::string> lines;
  std::istringstream trace(out.str());
  for (std::string line; std::getline(trace, line);) lines.push_back(line);
  return lines;
}

// What lines of these kinds tell: the kind and the other texts, behind the seconds when `timed`.
std::vector<std::string> TextsOf(const std::vector<std::string>& trace,
                                 const std::set<std::string>& kinds, bool timed = false) {
  std::vector<std::string> texts;
  for (const std::string& line : trace) {
    const JsonLine json = ReadJsonLine(line);
    EXPECT_EQ(json.NotJson + json.Fault, "") << line;
    const JsonValue& members = json.Value;
    if (!kinds.contains(members.Find("what")->Text)) continue;
    std::string text = timed ? members.Find("at")->Text.substr(17) + " " : "";
    for (const auto& [name, value] : members.Members) {
      if (name != "at") text += (name == "what" ? "" : " ") + ToUtf8(value.Text);
    }
    texts.push_back(text);
  }
  return texts;
}

// What is said about a script with a fault.
std::string Refusal(const std::string& script) {
  std::istringstream in(script);
  std::ostringstream out;
  std::string error;
  EXPECT_EQ(RunScript(in, out, error), kScriptRefused) << script;
  EXPECT_EQ(out.str(), "") << script;
  return error;
}

// A step as it is written in C++: without braces, and with one kind of quotation mark for the
// other.
std::string Step(std::string members) {
  std::ranges::replace(members, '\'', '"');
  return "{" + members + "}\n";
}

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

// Yes to the greeting, an account, and a look at the form.
TEST(FieldScript, SetsUpTheProgram) {
  const auto trace =
      TextsOf(TraceOf(R"({"do":"answer","to":"Greetings","with":"Yes"}
{"do":"start"}
{"do":"press","form":"Opts","button":"Command5"}
{"do":"set","form":"Opts","field":"Check1","to":true}
{"do":"closeBox","form":"Opts"}
{"do":"set","form":"Account","field":"Text1","to":"one"}
{"do":"set","form":"Account","field":"Text2","to":"ann@example.test"}
{"do":"grant","name":"grant:ABCDEFGHIJ27","after":"20s"}
{"do":"press","form":"Account","button":"Connect"}
{"do":"run","for":"1m"}
{"do":"show","what":"form","form":"Account"}
{"do":"press","form":"Account","button":"Command1"}
{"do":"select","form":"Opts","field":"Tabs","item":"Sounds"}
{"do":"choose","file":"/x/y.wav"}
{"do":"press","form":"Opts","button":"Command10"}
{"do":"show","what":"form","form":"Opts"}
{"do":"press","form":"Opts","button":"Command1"})"),
              {"form", "refused", "close", "hide", "control", "store", "choose", "grant"});
  EXPECT_THAT(trace, Contains("refused Opts is behind Account").Times(2));
  EXPECT_THAT(trace, Contains("grant made"));
  EXPECT_THAT(trace, Contains("control Account Text2 ... True"));
  EXPECT_THAT(trace, Contains("control Account Text3 ... True"));
  EXPECT_THAT(trace, Contains("control Opts Combo3 one True"));
  EXPECT_THAT(trace, Contains("control Opts Check14 False True"));
  EXPECT_THAT(trace, Contains("control Opts Tabs Sounds True"));
  EXPECT_THAT(trace, Contains("choose Select Sound: /x/y.wav"));
  EXPECT_THAT(trace, Contains("control Opts Combo11 y.wav True"));
  EXPECT_THAT(trace, Contains("store AdSense Accounts one"));
  EXPECT_THAT(trace, Contains("store Sounds ImpressionsChanged /x/y.wav"));
  EXPECT_THAT(trace, Not(Contains(StartsWith("store General Use24Hour"))));
  EXPECT_EQ(trace.back(), "close Opts");
}

TEST(FieldScript, TellsWhatThePersonCannotDoAndKeepsSecrets) {
  struct Case {
    const char *step, *trace;
  };
  const Case kCases[] = {
      {"'set','form':'Opts','field':'Check1','to':true", ""},
      {"'set','form':'Opts','field':'Check14','to':true", "refused Opts Check14 is disabled"},
      {"'set','form':'Opts','field':'Check99','to':true", "refused Opts Check99 is no control"},
      {"'set','form':'Opts','field':'Text4','to':true",
       "refused Opts Text4 is another kind of control"},
      {"'select','form':'Opts','field':'Combo1','item':'Sleep'",
       "refused Opts Combo1 has no entry \"Sleep\""},
      {"'press','form':'Opts','button':'ApplyButton'", "refused Opts ApplyButton is disabled"},
      {"'press','form':'Account','button':'Command1'", "refused Account is not open"},
      {"'closeBox','form':'ReportsWin'", "refused ReportsWin is not open"},
      {"'closeBox','form':'Opts'", "close Opts"},
      {"'press','form':'Opts','button':'Command5'}\n"
       "{'do':'closeBox','form':'Account','in':'1s'}\n{'do':'answer','with':'OK','after':'2s'}\n"
       "{'do':'press','form':'Account','button':'Command1'",
       "refused Account is behind a message box"},
      {"'show','what':'form','form':'AboutWin'", ""},
      {"'file','name':'a.ini','text':'PASSWORDS=hgkins\\r\\nRUNS=2\\r\\n'}\n"
       "{'do':'show','what':'files'",
       "file /app/a.ini PASSWORDS=...\r\nRUNS=2\r\n"},
  };
  for (const Case& c : kCases) {
    const std::string script = kUsedAndStarted + Step("'do':'menu','item':'Options'") +
                               Step(std::string("'do':") + c.step);
    const auto trace = TextsOf(TraceOf(script), {"refused", "close", "control", "file"});
    EXPECT_EQ(JoinText(trace, "\n"), c.trace) << c.step;
  }
}

TEST(MouseScript, DoesWhatThePersonDoes) {
  struct Case {
    std::vector<const char*> steps;
    std::vector<std::string> trace;
  };
  const Case kCases[] = {
      {{"'do':'hover'", "'do':'leave','in':'900ms'", "'do':'run','for':'2s'"},
       {"00.401 tooltip opens", "00.900 tooltip closes"}},
      {{"'do':'hover','x':5,'y':6", "'do':'leave','x':5,'y':6,'in':'900ms'",
        "'do':'run','for':'1m'"},
       {"00.401 tooltip opens"}},
      {{"'do':'left'", "'do':'double','in':'150ms'", "'do':'run','for':'1s'"},
       {"00.150 form Opts"}},
      {{"'do':'right','item':'About','after':'2s'"},
       {"00.000 menu opens", "02.000 menu About", "02.000 form AboutWin", "02.000 menu closes"}},
      {{"'do':'kill'", "'do':'hover'", "'do':'left'", "'do':'double'",
        "'do':'right','item':'Options'", "'do':'start'", "'do':'right'"},
       {"00.000 menu opens", "00.000 menu closes"}},
  };
  for (const Case& c : kCases) {
    std::string script = kUsedAndStarted;
    for (const char* step : c.steps) script += Step(step);
    EXPECT_THAT(TextsOf(TraceOf(script), {"tooltip", "menu", "form", "open"}, true),
                ElementsAreArray(c.trace))
        << script;
  }
}

}  // namespace
}  // namespace quillbox

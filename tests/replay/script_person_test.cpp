// Scripts of a person who uses the program's forms and its tray icon.
#include <gmock/gmock.h>

#include "replay/run_script.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

using testing::Contains;
using testing::Not;
using testing::StartsWith;

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
      {{"'do':'left'", "'do':'run','for':'1s'"}, {"00.200 open https://quillbox.example.test"}},
      {{"'do':'left'", "'do':'double','in':'150ms'", "'do':'run','for':'1s'"},
       {"00.150 form Opts"}},
      {{"'do':'right','item':'About','after':'2s'"},
       {"00.000 menu opens", "02.000 menu About", "02.000 form AboutWin", "02.000 menu closes"}},
      {{"'do':'right'"}, {"00.000 menu opens", "00.000 menu closes"}},
      {{"'do':'kill'", "'do':'hover'", "'do':'left'", "'do':'double'",
        "'do':'right','item':'Options'", "'do':'start'", "'do':'right'"},
       {"00.000 menu opens", "00.000 menu closes"}},
  };
  for (const Case& c : kCases) {
    std::string script = kUsedAndStarted;
    for (const char* step : c.steps) script += Step(step);
    EXPECT_THAT(TextsOf(TraceOf(script), {"tooltip", "menu", "form", "open"}, true),
                testing::ElementsAreArray(c.trace))
        << script;
  }
}

}  // namespace
}  // namespace quillbox

// Requests: an answer of each kind to the letter, and what is said of faults.
#include <gmock/gmock.h>

#include <span>
#include <string>
#include <string_view>

#include "quillbox-replay/batch.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// Without its line feed.
std::string Answer(std::string_view request) {
  std::string answers;
  AnswerRequest(request, answers);
  answers.pop_back();
  return answers;
}

struct AnswerCase {
  const char* What;
  std::string Request;
  std::string Answer;
};

void ExpectAnswers(std::span<const AnswerCase> cases) {
  for (const AnswerCase& c : cases) EXPECT_EQ(Answer(c.Request), c.Answer) << c.What;
}

// Each form of an argument and of a result; what the functions do is their own tests' matter.
TEST(Answers, Convert) {
  const std::pair<const char*, const char*> kAnswers[] = {
      {R"j("ToDouble","argument":"(1,234.5)","region":"en-US")j", R"("result":-1234.5)"},
      {R"("ToDouble","argument":"","region":"en-US")", R"("refused":true)"},
      {R"("ToCurrency","argument":"$1.23","region":"en-US")", R"("result":"12300")"},
      {R"("ToLong","argument":"2.5","region":"en-US")", R"("result":2)"},
      {R"("ToDate","argument":"Feb 3","region":"en-US","now":"2009-05-01T00:00:00")",
       R"("result":"2009-02-03")"},
      {R"("NumberText","argument":{"currency":"-9223372036854775808"},"region":"de-DE")",
       R"("result":"-922337203685477,5808")"},
      {R"("CurrencyText","argument":1.26,"decimals":1,"region":{"currencySymbol":"€",)"
       R"("positiveCurrency":"n $"})",
       R"("result":"1.3 €")"},
      {R"("CurrencyText","argument":"-1.005","decimals":2,"region":"en-US")",
       R"j("result":"($1.01)")j"},
      {R"("ShortDate","argument":"2007-01-31","region":"de-DE")", R"("result":"31.01.2007")"},
      {R"("TimeText","argument":"09:05:00","use24Hour":false,"region":"en-US")",
       R"("result":"9:05 AM")"},
      {R"("CommaCharacter","region":{"group":""})", R"("result":"0")"},
      {R"("FileNameOf","argument":"\"\b\f\n\r\t\u0041\u20AC")", R"("result":"\"\b\f\n\r\tA€")"},
      {R"j("KeepNumberChars","argument":"(a -1 2 b)")j", R"("result":"1 2")"},
      {R"("SkinColor","argument":"0,26,53")", R"("result":3480064)"},
      {R"("SkinColor","argument":"")", R"("result":null)"},
  };
  for (const auto& [request, result] : kAnswers) {
    EXPECT_EQ(Answer(R"({"op":"convert","function":)" + std::string(request) + "}"),
              R"({"ok":true,)" + std::string(result) + "}")
        << request;
  }
}

TEST(Answers, AccountList) {
  const AnswerCase kAnswers[] = {
      {"keys are found in any case; passwords come in clear",
       R"({"op":"accountList","settings":{"ADSENSE":{"accounts":"a|||b","Usernames":"x|||y","PASSWORDS":"bdf|||2"}}})",
       R"({"ok":true,"accounts":["a","b"],"usernames":["x","y"],"passwords":["abc","1"]})"},
  };
  ExpectAnswers(kAnswers);
}

TEST(Answers, Profile) {
  const AnswerCase kAnswers[] = {
      {"reads, writes and deletes in their order",
       R"({"op":"profile","text":"; note\r\n[General]\r\nUSE24HOUR=True\r\n","steps":[)"
       R"(["read","general","use24Hour"],["write","General","Load","a b "],["read","General","LOAD"],)"
       R"(["delete","General","Use24Hour"],["read","General","Use24Hour"]]})",
       R"({"ok":true,"results":["True",null,"a b ",null,""],)"
       R"("text":"; note\r\n[General]\r\nUSE24HOUR=\r\nLOAD=a b \r\n"})"},
  };
  ExpectAnswers(kAnswers);
}

// The parts of an evaluation that the cases don't vary.
std::string EvaluateRequest(std::string_view account, std::string_view settings,
                            std::string_view files) {
  return R"({"op":"evaluate","region":"en-US","now":"2007-01-31T09:05:00","account":")" +
         std::string(account) + R"(","accounts":["One","Two"],"settings":)" +
         std::string(settings) +
         R"j(,"soundFiles":["i.wav","c.wav","(None)","e.wav","(None)","d.wav"],"files":)j" +
         std::string(files) + "}";
}

constexpr std::string_view kContent =
    R"({"content":"h\n1/31/2007\t1000\t10\t1.00%\t2.00\t2.00\nTotals\t5000\t50\t1.00%\t2.00\t10.00\n-\n",)"
    R"("search":"h\n1/31/2007\t500\t5\t1.00%\t4.00\t2.00\nTotals\t500\t5\t1.00%\t4.00\t2.00\n-\n",)"
    R"("referral":"h\n1/31/2007\t0\t0\t0%\t0\t0.00\t0.00\nTotals\t0\t0\t0%\t0\t0.00\t0.00\n-\n"})";

TEST(Answers, EvaluateTellsStoreTooltipWholeBalloonAndSounds) {
  // Keys that were there keep their case; those that the evaluation writes have the program's.
  const std::string settings =
      R"({"adsense":{"PRIMARYACCOUNT":"One"},"MISC":{"lastdate":"1/30/2007"},)"
      R"("TrayIcon":{"ShowBalloonWhen":"Clicks Changes"},)"
      R"("TrayTooltip":{"DataToDownload":"All","Values":"ABCDEFGHIJKLM"}})";
  const std::string text =
      R"(Date: 1/31/2007\r\nImpressions: 1,500\r\nClicks: 15\r\nCTR: 1.0%\r\neCPM: $2.67\r\n)"
      R"(Earnings: $4.00\r\nPredicted Earnings: $0.00\r\nMonth Impressions: 5,500\r\n)"
      R"(Month Clicks: 55\r\nMonth CTR: 1.0%\r\nMonth eCPM: $2.18\r\nMonth Earnings: $12.00\r\n)"
      R"(Downloaded: 9:05 AM)";
  ASSERT_GT(text.size(), 255U);  // longer than the tray record's field
  const std::string record =
      "9:05 AM|||1/31/2007|||1500|||15|||1.0%|||$2.67|||4|||$0.00|||5500|||55|||1.0%|||$2.18|||12";
  EXPECT_EQ(
      Answer(EvaluateRequest("One", settings, kContent)),
      R"({"ok":true,"settings":{"Accounts":{"One":")" + record +
          R"(","One Impressions":""},"adsense":{"PRIMARYACCOUNT":"One"},)"
          R"("MISC":{"lastdate":"1/31/2007"},"TrayIcon":{"ShowBalloonWhen":"Clicks Changes"},)"
          R"("TrayTooltip":{"DataToDownload":"All","Values":"ABCDEFGHIJKLM"}},"tooltip":")" +
          text + R"(","balloon":")" + text + R"(","sounds":["i.wav","c.wav","e.wav","d.wav"]})");
}

TEST(Answers, EvaluateTellsNullForWhatDidNotHappen) {
  const std::string settings = R"({"AdSense":{"PrimaryAccount":"One"},)"
                               R"("TrayTooltip":{"DataToDownload":"AdSense for Search"}})";
  EXPECT_EQ(
      Answer(EvaluateRequest("Two", settings, R"({"content":null,"search":null,"referral":null})")),
      R"({"ok":true,"settings":{"Accounts":{"Two":"9:05 AM|||1/31/2007|||0|||0|||0|||0|||0|||)"
      R"($0.00|||0|||0|||0|||0|||0","Two Impressions":""},"AdSense":{"PrimaryAccount":"One"},)"
      R"("Misc":{"LastDate":"1/31/2007"},)"
      R"("TrayTooltip":{"DataToDownload":"AdSense for Search"}},)"
      R"("tooltip":null,"balloon":null,"sounds":["i.wav","c.wav","e.wav","d.wav"]})");
}

constexpr std::string_view kTwoRecords =
    R"("Accounts":{"One":"9:01 AM|||1/30/2007|||1000|||15|||1.5%|||$2.00|||3.00|||$0.00|||0|||0|||0%|||0.00|||0.00",)"
    R"("Two":"9:05 AM|||1/31/2007|||500|||3|||0.6%|||$3.00|||1.50|||$0.00|||0|||0|||0%|||0.00|||0.00"})";

TEST(Answers, StatsText) {
  const auto request = [](std::string_view account, std::string_view settings) {
    return R"({"op":"statsText","region":"en-US","accounts":["One","Two"],"account":")" +
           std::string(account) + R"(","settings":{)" + std::string(settings) + "," +
           std::string(kTwoRecords) + "}}";
  };
  const AnswerCase kAnswers[] = {
      {"all accounts",
       request("One", R"("TrayTooltip":{"Values":"ABCDEFG","DisplayAllStats":"True"})"),
       R"({"ok":true,"text":"Date: 1/31/2007\r\nImpressions: 1,500\r\nClicks: 18\r\nCTR: 1.05%\r\n)"
       R"(eCPM: $2.50\r\nEarnings: $4.50\r\nDownloaded: 9:05 AM"})"},
  };
  ExpectAnswers(kAnswers);
}

TEST(Answers, AccountMenus) {
  EXPECT_EQ(
      Answer(R"({"op":"accountMenus","region":"en-US","accounts":["One","New"],"settings":{)" +
             std::string(kTwoRecords) + "}}"),
      R"({"ok":true,"popups":[{"caption":"One","items":["1/30/2007","Impressions: 1,000",)"
      R"("Clicks: 15","CTR: 1.5%","eCPM: $2.00","Earnings: $3.00","Predicted Earnings: $0.00",)"
      R"("Month Impressions: 0","Month Clicks: 0","Month CTR: 0%","Month eCPM: $0.00",)"
      R"("Month Earnings: $0.00","Downloaded: 9:01 AM"]},{"caption":"New","items":[]}]})");
}

// To the letter, for commands and addresses are contracts with other programs.
TEST(Answers, Refresh) {
  const std::string commands =
      R"({"op":"refreshCommands","username":"a.b","password":"+%","host":"h.example:8443","folder":"/x")";
  const std::string form = "Email=%61%2E%62&Passwd=%2B%%#%https://h.example:8443/adsense/report/";
  const std::string dates =
      "&dateRange.dateRangeType=simple&dateRange.simpleDate=thismonth&reportType=property"
      "&groupByPref=date&outputFormat=TSV_EXCEL";
  const std::string outcome = R"({"op":"refreshOutcome","username":"ann","domain":"d.example",)";
  const AnswerCase kAnswers[] = {
      {"all reports by page",
       commands +
           R"(,"settings":{"TrayTooltip":{"DataToDownload":"All","ShowDataByPage":"Page"}}})",
       R"({"ok":true,"commands":[")" + form + "aggregate?product=afc" + dates +
           R"(&unitPref=page|/x/Content.dat|/x/Content.log",")" + form + "aggregate?product=afs" +
           dates + R"(|/x/Search.dat|/x/Search.log",")" + form + "referrals?product=ref" + dates +
           R"(|/x/Referral.dat|/x/Referral.log"]})"},
      {"by ad unit",
       commands + R"(,"settings":{"TrayTooltip":{"DataToDownload":"AdSense for Content"}}})",
       R"({"ok":true,"commands":[")" + form + "aggregate?product=afc" + dates +
           R"(&unitPref=adunit|/x/Content.dat|/x/Content.log"]})"},
      {"the sign-in", R"({"op":"signInAddress","username":"a.b@","password":"+%","host":"h.test"})",
       R"({"ok":true,"address":"https://h.test/accounts/ServiceLoginAuth?ltmpl=login)"
       R"(&continue=https://h.test/adsense/gaiaauth&followup=https://h.test/adsense/gaiaauth)"
       R"(&service=adsense&nui=3&ifr=true&rm=hide&ltmpl=login&hl=en-US&alwf=true)"
       R"(&Email=%61%2E%62%40&Passwd=%2B%&null=Sign+in"})"},
      {"good", outcome + R"("contentCode":"0","otherCode":""})",
       R"({"ok":true,"evaluate":true,"balloon":null})"},
      {"password", outcome + R"("contentCode":"3\r\n","otherCode":"0"})",
       R"({"ok":true,"evaluate":false,"balloon":"You have entered an incorrect username and/or )"
       R"(password for the \"ann\" AdSense account in the \"AdSense\" tab of the Quillbox Options window."})"},
  };
  ExpectAnswers(kAnswers);
}

TEST(Answers, Tooltip) {
  const AnswerCase kAnswers[] = {
      {"rows and size",
       R"({"op":"tooltipLayout","text":"A: b\r\nplain\r\nCC: dd","measure":)"
       R"({"description":100,"value":90.5,"height":195}})",
       R"({"ok":true,"rows":[{"line":0,"description":"A:","value":" b","left":180,"top":150,)"
       R"("valueLeft":380},{"line":2,"description":"CC:","value":" dd","left":180,"top":370,)"
       R"("valueLeft":480}],"width":931.5,"height":715})"},
      {"beside the taskbar",
       R"({"op":"tooltipPlacement","taskbar":[0,738,1024,768],"screen":[1024,768],)"
       R"("window":[143.5,48]})",
       R"({"ok":true,"x":870,"y":690})"},
      {"no edge fits",
       R"({"op":"tooltipPlacement","taskbar":[0,100,500,200],"screen":[1024,768],)"
       R"("window":[144,48]})",
       R"({"ok":true,"keep":true})"},
  };
  ExpectAnswers(kAnswers);
}

TEST(Answers, Reports) {
  const std::string data = R"({"op":"reportData","now":"2007-03-01T00:00:00","region":"de-DE",)";
  const AnswerCase kAnswers[] = {
      {"the command",
       R"({"op":"reportCommand","title":"Referrals - CTR","range":"All Time",)"
       R"("unit":"Page","username":"a","password":"+","host":"h","folder":"/x y"})",
       R"({"ok":true,"command":"Email=%61&Passwd=%2B%#%https://h/adsense/report/referrals?)"
       R"(product=ref&dateRange.dateRangeType=simple&dateRange.simpleDate=alltime)"
       R"(&reportType=property&groupByPref=date&outputFormat=TSV_EXCEL)"
       R"(|/x y/Report.dat|/x y/Report.log"})"},
      {"the data, of this year",
       data + R"("title":"Ad Channel Performance - CTR","text":"h\n2.1\tä\t1\t1\t1,5%\nt\na\n"})",
       R"({"ok":true,"labels":"Dienstag<BR>02.01.07","values":"1.5","channels":"ä"})"},
      {"no data", data + R"("title":"Ad Performance - CTR","text":"heading\nt\na\n"})",
       R"({"ok":true,"noData":true})"},
      {"an unknown title", data + R"("title":"ad performance - CTR","text":"h\nt\na\n"})",
       R"({"ok":false,"error":"unknown report title"})"},
  };
  ExpectAnswers(kAnswers);
  const std::string page = Answer(
      R"({"op":"reportPage","title":"CTR","labels":"L","values":"V","channels":"","period":".","comma":","})");
  EXPECT_NE(page.find(R"(graph.labels = \"L\";graph.values = \"V\";graph.periodCharacter)"),
            page.npos)
      << page;
}

TEST(Answers, VersionCheck) {
  const std::string check = R"({"op":"versionCheck","installed":"1.3.0",)";
  const AnswerCase kAnswers[] = {
      {"no file", check + R"("file":null,"asked":"Yes","announced":""})",
       R"({"ok":true,"outcome":"failed"})"},
      {"newer", check + R"("file":"1.3.1\r\n","asked":"No","announced":""})",
       R"({"ok":true,"outcome":"ask","text":"Quillbox v1.3.1 is available!  )"
       R"(Would you like to download the setup now?"})"},
  };
  ExpectAnswers(kAnswers);
}

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

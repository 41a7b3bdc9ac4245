#include <gtest/gtest.h>

#include "replay/answer.h"

namespace quillbox {
namespace {

struct Case {
  const char* Function;
  const char* Members;  // of the request, behind the function
  const char* Answer;   // the members behind "ok"
};

constexpr Case kCases[] = {
    {"LeadingNumber", R"("argument":" 1 2\t3x")", R"("result":123)"},
    {"ToDouble", R"j("argument":"(1,234.5)","region":"en-US")j", R"("result":-1234.5)"},
    {"ToDouble", R"("argument":"","region":"en-US")", R"("refused":true)"},
    {"ToCurrency", R"("argument":"$1.23","region":"en-US")", R"("result":"12300")"},
    {"ToDecimal", R"("argument":"001.500","region":"en-US")", R"("result":"1.5")"},
    {"ToLong", R"("argument":"2.5","region":"en-US")", R"("result":2)"},
    {"ToDate", R"("argument":"Feb 3","region":"en-US","now":"2009-05-01T00:00:00")",
     R"("result":"2009-02-03")"},
    {"NumberText", R"("argument":1234.5,"region":"de-DE")", R"("result":"1234,5")"},
    {"NumberText", R"("argument":{"currency":"-5000"},"region":"en-US")", R"("result":"-0.5")"},
    {"NumberText", R"("argument":{"currency":"-9223372036854775808"},"region":"de-DE")",
     R"("result":"-922337203685477,5808")"},
    {"CurrencyText", R"("argument":1234.5,"region":"en-US")", R"("result":"$1,234.50")"},
    {"CurrencyText", R"("argument":"-1.005","decimals":2,"region":"en-US")",
     R"j("result":"($1.01)")j"},
    {"CurrencyText",
     R"("argument":1.26,"decimals":1,"region":{"currencySymbol":"€","positiveCurrency":"n $"})",
     R"("result":"1.3 €")"},
    {"CurrencyText", R"("argument":"N/A","region":"en-US")", R"("refused":true)"},
    {"GroupedText", R"("argument":1234.5,"region":{"group":"'"})", R"("result":"1'235")"},
    {"CtrText", R"("argument":0.0123,"region":"en-US")", R"("result":"1.23%")"},
    {"EcpmText", R"("argument":1234.5,"region":"en-US")", R"("result":"$1,234.5")"},
    {"ShortDate", R"("argument":"2007-01-31","region":"de-DE")", R"("result":"31.01.2007")"},
    {"TimeText", R"("argument":"09:05:00","use24Hour":false,"region":"en-US")",
     R"("result":"9:05 AM")"},
    {"FixPercentCell", R"("argument":"0.97%","region":"de-DE")", R"("result":"0,97%")"},
    {"FixMoneyCell", R"("argument":"1,234.56","region":"de-DE")", R"("result":"1.234,56")"},
    {"NormalizeReportCell", R"("argument":"1.234,56")", R"("result":"1,234.56")"},
    {"NormalizeReportCell", R"("argument":"12")", R"("refused":true)"},
    {"KeepNumberChars", R"("argument":"USD 1,234.50 x")", R"("result":"1,234.50")"},
    {"PeriodCharacter", R"("region":"fr-FR")", R"("result":",")"},
    {"CommaCharacter", R"("region":{"group":""})", R"("result":"0")"},
    {"RateMinutes", R"("argument":"Every 2 hours")", R"("result":120)"},
    {"ScrambleText", R"("argument":"abc\/")", R"("result":"bdf3")"},
    {"UnscrambleText", R"("argument":"bdf")", R"("result":"abc")"},
    {"FileNameOf", R"("argument":"C:\\Sounds\\a.wav")", R"("result":"a.wav")"},
    {"FileNameOf", R"("argument":"C:\\Sounds/é.wav")", R"("result":"é.wav")"},
    {"FileNameOf", R"("argument":"\"\b\f\n\r\t\u0041\u20AC")", R"("result":"\"\b\f\n\r\tA€")"},
    {"EncodeFormValue", R"("argument":"a.b+%é")", R"("result":"%61%2E%62%2B%é")"},
};

TEST(Convert, EachFunction) {
  for (const Case& c : kCases) {
    const std::string request =
        R"({"op":"convert","function":")" + std::string(c.Function) + R"(",)" + c.Members + "}";
    EXPECT_EQ(Answer(request), R"({"ok":true,)" + std::string(c.Answer) + "}") << request;
  }
}

}  // namespace
}  // namespace quillbox

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
    {"LeadingNumber", R"("argument":"1,234")", R"("result":1)"},
    {"LeadingNumber", R"("argument":" 1 2\t3x")", R"("result":123)"},
    {"LeadingNumber", R"("argument":"none")", R"("result":0)"},
    {"LeadingNumber", R"("argument":"1e5")", R"("result":100000)"},
    {"LeadingNumber", R"("argument":"0.1")", R"("result":0.1)"},
    {"LeadingNumber", R"("argument":"1e300")", R"("result":1e+300)"},
    {"ToDouble", R"j("argument":"(1,234.5)","region":"en-US")j", R"("result":-1234.5)"},
    {"ToDouble", R"("argument":"1.234,5","region":"de-DE")", R"("result":1234.5)"},
    {"ToDouble", R"("argument":"","region":"en-US")", R"("refused":true)"},
    {"ToCurrency", R"("argument":"$1.23","region":"en-US")", R"("result":"12300")"},
    {"ToCurrency", R"("argument":"0.00005","region":"en-US")", R"("result":"0")"},
    {"ToCurrency", R"("argument":"0.00015","region":"en-US")", R"("result":"2")"},
    {"ToCurrency", R"("argument":"922337203685477.5807","region":"en-US")",
     R"("result":"9223372036854775807")"},
    {"ToDecimal", R"("argument":"001.500","region":"en-US")", R"("result":"1.5")"},
    {"ToDecimal", R"("argument":"1e20","region":"en-US")", R"("result":"100000000000000000000")"},
    {"ToLong", R"("argument":"2.5","region":"en-US")", R"("result":2)"},
    {"ToLong", R"("argument":"2147483648","region":"en-US")", R"("refused":true)"},
    {"ToDate", R"("argument":"13/2/2007","region":"en-US","now":"2009-05-01T00:00:00")",
     R"("result":"2007-02-13")"},
    {"ToDate", R"("argument":"Feb 3","region":"en-US","now":"2009-05-01T00:00:00")",
     R"("result":"2009-02-03")"},
    {"ToDate", R"("argument":"2/30/2007","region":"en-US","now":"2009-05-01T00:00:00")",
     R"("refused":true)"},
    {"NumberText", R"("argument":1234.5,"region":"de-DE")", R"("result":"1234,5")"},
    {"NumberText", R"("argument":{"currency":"-5000"},"region":"en-US")", R"("result":"-0.5")"},
    {"NumberText", R"("argument":{"currency":"9223372036854775807"},"region":"en-US")",
     R"("result":"922337203685477.5807")"},
    {"CurrencyText", R"("argument":1234.5,"region":"en-US")", R"("result":"$1,234.50")"},
    {"CurrencyText", R"("argument":"-1.005","decimals":2,"region":"en-US")",
     R"j("result":"($1.01)")j"},
    {"CurrencyText",
     R"("argument":1.26,"decimals":1,"region":{"currencySymbol":"€","positiveCurrency":"n $"})",
     R"("result":"1.3 €")"},
    {"CurrencyText", R"("argument":"N/A","region":"en-US")", R"("refused":true)"},
    {"GroupedText", R"("argument":"1234.5","region":"en-US")", R"("result":"1,235")"},
    {"GroupedText", R"("argument":1234.5,"region":{"group":"'"})", R"("result":"1'235")"},
    {"CtrText", R"("argument":0.0123,"region":"en-US")", R"("result":"1.23%")"},
    {"CtrText", R"("argument":0.5,"region":"en-US")", R"("result":"50.0%")"},
    {"EcpmText", R"("argument":1234.5,"region":"en-US")", R"("result":"$1,234.5")"},
    {"ShortDate", R"("argument":"2007-01-31","region":"en-US")", R"("result":"1/31/2007")"},
    {"ShortDate", R"("argument":"2007-01-31","region":"de-DE")", R"("result":"31.01.2007")"},
    {"TimeText", R"("argument":"09:05:00","use24Hour":false,"region":"en-US")",
     R"("result":"9:05 AM")"},
    {"TimeText", R"("argument":"09:05:00","use24Hour":true,"region":"en-US")",
     R"("result":"09:05")"},
    {"FixPercentCell", R"("argument":"0%","region":"en-US")", R"("result":"0.")"},
    {"FixPercentCell", R"("argument":"0.97%","region":"de-DE")", R"("result":"0,97%")"},
    {"FixMoneyCell", R"("argument":"$12","region":"en-US")", R"("result":".12")"},
    {"FixMoneyCell", R"("argument":"1,234.56","region":"de-DE")", R"("result":"1.234,56")"},
    {"NormalizeReportCell", R"("argument":"1.234,56")", R"("result":"1,234.56")"},
    {"NormalizeReportCell", R"("argument":"12,34%")", R"("result":"12,34")"},
    {"NormalizeReportCell", R"("argument":"12")", R"("refused":true)"},
    {"KeepNumberChars", R"("argument":"USD 1,234.50 x")", R"("result":"1,234.50")"},
    {"PeriodCharacter", R"("region":"fr-FR")", R"("result":",")"},
    {"CommaCharacter", R"("region":{"group":""})", R"("result":"0")"},
    {"RateMinutes", R"("argument":"Every 2 hours")", R"("result":120)"},
    {"RateMinutes", R"("argument":"Sometimes")", R"("result":15)"},
    {"ScrambleText", R"("argument":"abc")", R"("result":"bdf")"},
    {"UnscrambleText", R"("argument":"bdf")", R"("result":"abc")"},
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

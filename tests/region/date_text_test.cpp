#include "region/date_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "region/test_region.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

constexpr int kYear = 2007;

// ISO form, or nothing when the date is refused.
std::optional<std::string> IsoDate(std::string_view text, const RegionalSettings& region) {
  RegionalSettings iso;
  iso.ShortDate = "yyyy-MM-dd";
  return OrNone([&] { return ShortDate(ToDate(text, region, kYear), iso); });
}

TEST(ToDate, TriesTheRegionsOrderFirst) {
  struct Case {
    const char* region;
    std::optional<std::string> date;
    std::vector<std::string> texts;
  };
  const Case kCases[] = {
      {"en-US", "2007-01-02", {"1/2/2007", " 1 - 2 - 07 ", "01.02.07", "1 2 2007", "1/2"}},
      {"en-GB", "2007-02-01", {"1/2/2007", "1/2", "2007-02-01"}},
      {"de-DE", "2007-02-03", {"3.2.2007", "3.2", "2007-02-03", "3.2.2007.", "3. 2. 2007."}},
      {"sv-SE", "2007-01-02", {"2007-01-02", "07-01-02", "1-2"}},
      {"en-US", "2007-02-13", {"13/2/2007", "2007-02-13", "13/2"}},
      {"en-GB", "2007-02-13", {"2/13/2007", "13/2/2007", "2007-02-13"}},
      {"sv-SE", "2007-02-13", {"13/2/2007", "2/13/2007"}},
      {"en-US", "2029-01-02", {"1/2/29"}},
      {"en-US", "1930-01-02", {"1/2/30"}},
      {"en-US", "2008-02-29", {"2/29/2008"}},
      {"en-US", {}, {"2/29/2007", "31/4/2007", "13/13/2007", "0/1/2007", "1/2/20077", "1/2/0007"}},
      {"en-US",
       {},
       {"1,2,2007", "1//2/2007", "1/2/2007\r", "1/2/2007/", "1/2/3/4", "2007", "", ".",
        "1/2/2007..", "x"}},
      // Months by name.
      {"en-US", "2007-01-02", {"January 2, 2007", "2-jan-07", "2007 Jan 2", "JAN 2"}},
      {"de-DE", "2007-03-04", {"4. M\304RZ 2007", "4 March 2007", "4. M\344r. 07"}},
      {"fr-FR", "2007-02-05", {"5 f\351vr. 2007", "5 f\351vrier 2007", "5 f\351vr."}},
      {"sv-SE", "2007-05-05", {"5 maj 2007"}},
      {"en-US", {}, {"5 maj 2007", "Jan Feb 2007", "31 Feb 2007", "Jan 2007"}}};
  for (const Case& c : kCases) {
    for (const std::string& text : c.texts) {
      EXPECT_EQ(IsoDate(text, Region(c.region)), c.date) << c.region << ": " << text;
    }
  }
}

// In "@" stands a month's name.
TEST(ToDate, NeedsNothingBetweenAMonthsNameAndANumber) {
  static const RegionalSettings kEnglish;
  const char* const kDates[] = {"@2, 2007", "@2 2007", "@ 2,2007", "@2,2007",  "@2.07",
                                "@2-2007",  "2@2007",  "2@ 2007",  "2 @2007",  "2@,2007",
                                "2@, 2007", "2007@2",  "2007@ 2",  "2007, @2", "2007-@2",
                                "@2",       "2@",      "02@ 2007", "02@2007",  "@02 2007"};
  const char* const kNoDates[] = {"@22007", "@2007",   "2007@",     "@@2 2007",  "2@2@",
                                  "@2x",    "x@2",     "@2007,2",   "@2nd 2007", "2007@2@",
                                  "@32",    "@0,2007", "2@2007 10", "@x2 2007",  "Tuesday@2, 2007"};
  const auto filled = [](std::string text, const std::string& month) {
    for (auto at = text.find('@'); at != text.npos; at = text.find('@', at + month.size())) {
      text.replace(at, 1, month);
    }
    return text;
  };
  for (const char* name : {"en-US", "en-GB", "de-DE", "fr-FR", "de-CH", "sv-SE", "pt-BR"}) {
    const RegionalSettings region = Region(name);
    for (std::size_t i = 0; i < 12; ++i) {
      const auto date = std::chrono::year_month_day(
          2007y, std::chrono::month(static_cast<unsigned>(i + 1)), std::chrono::day(2));
      for (const std::string& month :
           {region.Months[i], region.MonthsShort[i], kEnglish.Months[i], kEnglish.MonthsShort[i]}) {
        for (const char* form : kDates) {
          const std::string text = filled(form, month);
          EXPECT_EQ(OrNone([&] { return ToDate(text, region, kYear); }), date)
              << name << ": " << text;
        }
        for (const char* form : kNoDates) {
          const std::string text = filled(form, month);
          EXPECT_EQ(IsoDate(text, region), std::nullopt) << name << ": " << text;
        }
      }
    }
  }
}

TEST(ShortDate, FollowsTheRegionsForm) {
  const auto date = std::chrono::year_month_day(2007y, std::chrono::January, 2d);
  EXPECT_EQ(ShortDate(date, Region("en-US")), "1/2/2007");
  EXPECT_EQ(ShortDate(date, Region("en-GB")), "02/01/2007");
  EXPECT_EQ(ShortDate(date, Region("de-CH")), "02.01.2007");
  EXPECT_EQ(ShortDate(date, Region("sv-SE")), "2007-01-02");
  RegionalSettings region;
  region.ShortDate = "d. M yy";
  EXPECT_EQ(ShortDate(date, region), "2. 1 07");
}

TEST(TimeText, HasTwoForms) {
  struct Case {
    std::chrono::seconds time;
    const char *hours24, *hours12;
  };
  const Case kCases[] = {{0s, "00:00", "12:00 AM"},
                         {9h + 5min + 59s, "09:05", "9:05 AM"},
                         {12h, "12:00", "12:00 PM"},
                         {22h + 30min, "22:30", "10:30 PM"}};
  for (const Case& c : kCases) {
    EXPECT_EQ(TimeText(c.time, true, Region("en-US")), c.hours24);
    EXPECT_EQ(TimeText(c.time, false, Region("en-US")), c.hours12);
  }
  RegionalSettings bare;
  bare.Am = "";
  EXPECT_EQ(TimeText(9h, false, bare), "9:00");
}

}  // namespace
}  // namespace quillbox

#include "desktop/region.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "text/code_page.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

// UTF-8, for the eye.
std::string Shown(const std::vector<std::string>& texts) {
  return ToUtf8(JoinText(texts, "|"));
}

// Which kind of blank a date has changes from one release of the locale data to the next.
std::string ShownDates(const std::vector<std::string>& texts) {
  std::string shown = JoinText(texts, "|");
  std::ranges::replace(shown, '\xa0', ' ');
  return ToUtf8(shown);
}

TEST(Region, WritesNumbersAmountsAndDatesAsThePlaceDoes) {
  struct Case {
    const char* Locale;
    // Decimal point, groups, currency, its decimals, positive, negative. Empty where those have
    // changed from one release of the locale data to the next.
    const char* Numbers;
    const char* Dates;  // short date, time separator, a day, a month, the month in short
  };
  const Case kCases[] = {
      {"en_US", ".|,|$|2|$n|($n)", "M/d/yyyy|:|Tuesday|February|Feb"},
      {"en_GB", ".|,|£|2|$n|($n)", "dd/MM/yyyy|:|Tuesday|February|Feb"},
      {"de_DE", ",|.|€|2|n\u00a0$|-n\u00a0$", "dd.MM.yyyy|:|Dienstag|Februar|Feb"},
      {"fr_FR", ",|\u00a0|€|2|n\u00a0$|(n\u00a0$)", "dd/MM/yyyy|:|mardi|février|févr."},
      {"sv_SE", ",|\u00a0|kr|2|n\u00a0$|-n\u00a0$", "yyyy-MM-dd|:|tisdag|februari|feb."},
      {"fi_FI", ",|\u00a0|€|2|n\u00a0$|-n\u00a0$", "d.M.yyyy|.|tiistai|helmikuu|helmi"},
      {"ja_JP", ".|,|JPY|0|$n|($n)", "yyyy/MM/dd|:|Tuesday|February|Feb"},
      {"pl_PL", ",|\u00a0|PLN|2|n\u00a0$|(n\u00a0$)", "d.MM.yyyy|:|wtorek|luty|lut"},
      {"ru_RU", ",|\u00a0|RUB|2|n\u00a0$|-n\u00a0$", "dd.MM.yyyy|:|Tuesday|February|Feb"},
      {"hi_IN", ".|,|INR|2|$n|$-n", "d/M/yyyy|:|Tuesday|February|Feb"},
      {"bg_BG", "", "d.MM.yyyy .|:|Tuesday|February|Feb"},
      {"hu_HU", "", "yyyy. MM. dd.|:|kedd|február|febr."},
      {"C", ".|,|$|2|$n|($n)", "M/d/yyyy|:|Tuesday|February|Feb"},
  };
  for (const Case& c : kCases) {
    const RegionalSettings region = RegionOf(QLocale(c.Locale));
    const std::string numbers = Shown({region.Decimal, region.Group, region.CurrencySymbol,
                                       std::to_string(region.CurrencyDecimals),
                                       region.PositiveCurrency, region.NegativeCurrency});
    if (*c.Numbers != '\0') {
      EXPECT_EQ(numbers, c.Numbers) << c.Locale;
    }
    EXPECT_EQ(ShownDates({region.ShortDate, region.TimeSeparator, region.Weekdays[2],
                          region.Months[1], region.MonthsShort[1]}),
              c.Dates)
        << c.Locale;
  }
}

TEST(Region, AgreesWithTheBuiltInOneOfTheSamePlace) {
  for (const char* const name : {"en-US", "en-GB", "de-DE", "fr-FR", "de-CH", "sv-SE", "pt-BR"}) {
    SCOPED_TRACE(name);
    const RegionalSettings ours = BuiltInRegion(name).value();
    const RegionalSettings theirs = RegionOf(QLocale(QString(name).replace('-', '_')));
    EXPECT_EQ(ours.Decimal, theirs.Decimal);
    EXPECT_EQ(ours.CurrencySymbol, theirs.CurrencySymbol);
    EXPECT_EQ(ours.ShortDate, theirs.ShortDate);
    EXPECT_EQ(ours.Weekdays, theirs.Weekdays);
    EXPECT_EQ(ours.Months, theirs.Months);
    for (std::size_t i = 0; i < 12; ++i) {  // some have points, or more letters
      EXPECT_EQ(ours.MonthsShort[i].substr(0, 3), theirs.MonthsShort[i].substr(0, 3));
    }
  }
}

TEST(Region, IsUsableForEveryLocaleThatQtKnows) {
  const auto locales =
      QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
  ASSERT_GT(locales.size(), 100);
  for (const QLocale& locale : locales) {
    SCOPED_TRACE(locale.name().toStdString());
    const RegionalSettings region = RegionOf(locale);
    EXPECT_NE(region.Decimal, "");
    EXPECT_NE(region.Decimal, region.Group);
    EXPECT_NE(region.CurrencySymbol, "");
    for (const std::string& pattern : {region.PositiveCurrency, region.NegativeCurrency}) {
      EXPECT_NE(pattern.find('$'), std::string::npos) << pattern;
      EXPECT_NE(pattern.find('n'), std::string::npos) << pattern;
    }
    EXPECT_NE(region.PositiveCurrency, region.NegativeCurrency);
    EXPECT_NE(region.ShortDate.find("yyyy"), std::string::npos) << region.ShortDate;
    EXPECT_NE(region.TimeSeparator, "");
  }
}

}  // namespace
}  // namespace quillbox

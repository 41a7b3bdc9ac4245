#include "desktop/region.h"

#include <gtest/gtest.h>

#include "desktop/region_texts.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

// UTF-8, for the eye.
std::string Shown(const std::string& text) {
  return ToUtf8(text);
}

TEST(Region, WritesNumbersAndAmountsAsThePlaceDoes) {
  struct Case {
    const char* Locale;
    const char *Decimal, *Group, *Symbol;
    int Decimals;
    const char *Positive, *Negative;
  };
  const Case kCases[] = {
      {"en_US", ".", ",", "$", 2, "$n", "($n)"},
      {"en_GB", ".", ",", "£", 2, "$n", "($n)"},
      {"de_DE", ",", ".", "€", 2, "n\u00a0$", "-n\u00a0$"},
      {"fr_FR", ",", "\u00a0", "€", 2, "n\u00a0$", "(n\u00a0$)"},
      {"sv_SE", ",", "\u00a0", "kr", 2, "n\u00a0$", "-n\u00a0$"},
      {"ja_JP", ".", ",", "JPY", 0, "$n", "($n)"},
      {"pl_PL", ",", "\u00a0", "PLN", 2, "n\u00a0$", "(n\u00a0$)"},
      {"hi_IN", ".", ",", "INR", 2, "$n", "$-n"},
      {"C", ".", ",", "$", 2, "$n", "($n)"},
  };
  for (const Case& c : kCases) {
    const RegionalSettings region = RegionOf(QLocale(c.Locale));
    EXPECT_EQ(Shown(region.Decimal), c.Decimal) << c.Locale;
    EXPECT_EQ(Shown(region.Group), c.Group) << c.Locale;
    EXPECT_EQ(Shown(region.CurrencySymbol), c.Symbol) << c.Locale;
    EXPECT_EQ(region.CurrencyDecimals, c.Decimals) << c.Locale;
    EXPECT_EQ(Shown(region.PositiveCurrency), c.Positive) << c.Locale;
    EXPECT_EQ(Shown(region.NegativeCurrency), c.Negative) << c.Locale;
  }
}

TEST(Region, WritesDatesAsThePlaceDoes) {
  struct Case {
    const char *Locale, *ShortDate, *TimeSeparator, *Tuesday, *February, *Feb;
  };
  const Case kCases[] = {
      {"en_US", "M/d/yyyy", ":", "Tuesday", "February", "Feb"},
      {"de_DE", "dd.MM.yyyy", ":", "Dienstag", "Februar", "Feb"},
      {"sv_SE", "yyyy-MM-dd", ":", "tisdag", "februari", "feb."},
      {"fi_FI", "d.M.yyyy", ".", "tiistai", "helmikuu", "helmi"},
      {"ru_RU", "dd.MM.yyyy", ":", "Tuesday", "February", "Feb"},
      {"C", "M/d/yyyy", ":", "Tuesday", "February", "Feb"},
  };
  for (const Case& c : kCases) {
    const RegionalSettings region = RegionOf(QLocale(c.Locale));
    EXPECT_EQ(Shown(region.ShortDate), c.ShortDate) << c.Locale;
    EXPECT_EQ(Shown(region.TimeSeparator), c.TimeSeparator) << c.Locale;
    EXPECT_EQ(Shown(region.Weekdays[2]), c.Tuesday) << c.Locale;
    EXPECT_EQ(Shown(region.Months[1]), c.February) << c.Locale;
    EXPECT_EQ(Shown(region.MonthsShort[1]), c.Feb) << c.Locale;
  }
}

TEST(Region, IsUsableForEveryLocaleThatQtKnows) {
  const auto locales =
      QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
  ASSERT_GT(locales.size(), 100);
  for (const QLocale& locale : locales) {
    const RegionalSettings region = RegionOf(locale);
    const std::string name = locale.name().toStdString();
    EXPECT_FALSE(region.Decimal.empty()) << name;
    EXPECT_NE(region.Decimal, region.Group) << name;
    EXPECT_FALSE(region.CurrencySymbol.empty()) << name;
    for (const std::string& pattern : {region.PositiveCurrency, region.NegativeCurrency}) {
      EXPECT_NE(pattern.find('$'), std::string::npos) << name << " " << pattern;
      EXPECT_NE(pattern.find('n'), std::string::npos) << name << " " << pattern;
    }
    EXPECT_NE(region.PositiveCurrency, region.NegativeCurrency) << name;
    EXPECT_NE(region.ShortDate.find("yyyy"), std::string::npos) << name << region.ShortDate;
    EXPECT_FALSE(region.TimeSeparator.empty()) << name;
  }
}

TEST(RegionTexts, ReduceDateFormatsToTheirParts) {
  struct Case {
    const char *Format, *Expected;
  };
  const Case kCases[] = {{"d.MM.yy '\u0433'.", "d.MM.yyyy ."}, {"dddd, d MMM yyyy", "d MM yyyy"},
                         {"yyyy. MM. dd.", "yyyy. MM. dd."},   {"h:mm", "yyyy-MM-dd"},
                         {"d 'de' M 'de' y", "d  M  yyyy"},    {"", "yyyy-MM-dd"}};
  for (const Case& c : kCases) EXPECT_EQ(ShortDateFormat(c.Format), c.Expected) << c.Format;
}

}  // namespace
}  // namespace quillbox

#include "desktop/region.h"

#include <algorithm>

#include "desktop/region_texts.h"
#include "qt_base/unicode_text.h"

namespace quillbox {
namespace {

std::string TextOr(const QString& text, const std::string& standIn) {
  return WithStandIns(text).value_or(standIn);
}

void FillNumbers(const QLocale& locale, RegionalSettings& region) {
  region.Decimal = TextOr(locale.decimalPoint(), ".");
  region.Group = TextOr(locale.groupSeparator(), "");
  if (region.Decimal == region.Group) region.Group = "";
}

// Qt tells how many decimals an amount has only by writing one.
int DecimalsOf(const QLocale& locale, const QString& symbol) {
  const QString amount = locale.toCurrencyString(1.0, symbol);
  int digits = 0;
  for (const QChar c : amount) digits += c.isDigit() ? 1 : 0;
  return std::max(digits - 1, 0);
}

void FillCurrency(const QLocale& locale, RegionalSettings& region) {
  const std::string code = TextOr(locale.currencySymbol(QLocale::CurrencyIsoCode), "");
  const std::string own = TextOr(locale.currencySymbol(), code);
  if (!own.empty()) region.CurrencySymbol = own;
  const QString symbol(QChar(0xE000));  // stands in no format of any locale
  region.CurrencyDecimals = DecimalsOf(locale, symbol);
  region.PositiveCurrency = CurrencyPattern(locale.toCurrencyString(1.0, symbol, 0), symbol);
  region.NegativeCurrency = CurrencyPattern(locale.toCurrencyString(-1.0, symbol, 0), symbol);
  if (region.NegativeCurrency == region.PositiveCurrency) region.NegativeCurrency = "-$n";
}

void FillTimes(const QLocale& locale, RegionalSettings& region) {
  region.ShortDate = ShortDateFormat(locale.dateFormat(QLocale::ShortFormat));
  region.TimeSeparator = TimeSeparatorIn(locale.timeFormat(QLocale::ShortFormat));
  region.Am = TextOr(locale.amText(), "AM");
  region.Pm = TextOr(locale.pmText(), "PM");
}

std::string NameOr(const QString& name, const std::string& english) {
  const std::string text = ToCodePage(name).value_or("");
  return text.empty() ? english : text;
}

// The region holds the English names already.
void FillNames(const QLocale& locale, RegionalSettings& region) {
  for (int i = 0; i < 7; ++i) {
    std::string& name = region.Weekdays.at(static_cast<std::size_t>(i));
    name = NameOr(locale.standaloneDayName(i == 0 ? Qt::Sunday : i), name);
  }
  for (int i = 0; i < 12; ++i) {
    std::string& name = region.Months.at(static_cast<std::size_t>(i));
    name = NameOr(locale.standaloneMonthName(i + 1), name);
    std::string& shortName = region.MonthsShort.at(static_cast<std::size_t>(i));
    shortName = NameOr(locale.standaloneMonthName(i + 1, QLocale::ShortFormat), shortName);
  }
}

}  // namespace

RegionalSettings RegionOf(const QLocale& locale) {
  RegionalSettings region;
  if (locale.language() == QLocale::C) return region;
  FillNumbers(locale, region);
  FillCurrency(locale, region);
  FillTimes(locale, region);
  FillNames(locale, region);
  return region;
}

}  // namespace quillbox

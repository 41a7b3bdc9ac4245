#include "desktop/region.h"

#include <algorithm>

#include "qt_base/unicode_text.h"
#include "region/locale_marks.h"

namespace quillbox {
namespace {

std::u16string Utf16(const QString& text) {
  return text.toStdU16String();
}

}  // namespace

std::string CurrencyPattern(const QString& amount, const QString& symbol) {
  QString rest = amount;
  const auto digit = [](QChar c) { return c.isDigit(); };
  const auto first = std::find_if(rest.begin(), rest.end(), digit);
  const auto last = std::find_if(rest.rbegin(), rest.rend(), digit);
  if (first == rest.end()) return "$n";
  rest.replace(first - rest.begin(), last.base() - first, "n");
  rest.replace(symbol, "$");
  return WithStandIns(Utf16(rest)).value_or("$n");
}

namespace {

std::string TextOr(const QString& text, const std::string& standIn) {
  return WithStandIns(Utf16(text)).value_or(standIn);
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
  const QString symbolOfPlace = locale.currencySymbol();  // Qt 6.8 has none for francs
  const std::string own = symbolOfPlace.isEmpty() ? code : TextOr(symbolOfPlace, code);
  if (!own.empty()) region.CurrencySymbol = own;
  const QString symbol(QChar(0xE000));  // stands in no format of any locale
  region.CurrencyDecimals = DecimalsOf(locale, symbol);
  region.PositiveCurrency = CurrencyPattern(locale.toCurrencyString(1.0, symbol, 0), symbol);
  region.NegativeCurrency = CurrencyPattern(locale.toCurrencyString(-1.0, symbol, 0), symbol);
  if (region.NegativeCurrency == region.PositiveCurrency) region.NegativeCurrency = "-$n";
}

void FillTimes(const QLocale& locale, RegionalSettings& region) {
  region.ShortDate = ShortDateFormat(Utf16(locale.dateFormat(QLocale::ShortFormat)));
  region.TimeSeparator = TimeSeparatorIn(Utf16(locale.timeFormat(QLocale::ShortFormat)));
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

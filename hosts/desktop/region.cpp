#include "desktop/region.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "qt_base/unicode_text.h"

namespace quillbox {
namespace {

constexpr char16_t kNoBreakBlank = 0x00A0;

struct StandIn {
  char16_t Foreign;
  char16_t Ours;
};
constexpr StandIn kStandIns[] = {
    {0x2000, kNoBreakBlank}, {0x2001, kNoBreakBlank}, {0x2002, kNoBreakBlank},
    {0x2003, kNoBreakBlank}, {0x2004, kNoBreakBlank}, {0x2005, kNoBreakBlank},
    {0x2006, kNoBreakBlank}, {0x2007, kNoBreakBlank}, {0x2008, kNoBreakBlank},
    {0x2009, kNoBreakBlank}, {0x200A, kNoBreakBlank}, {0x202F, kNoBreakBlank},
    {0x2010, u'-'},          {0x2011, u'-'},          {0x2212, u'-'},
    {0x066B, u'.'},          {0x066C, u','},          {0x060C, u','},
    {0xFF0C, u','},          {0xFF0E, u'.'},          {0x2044, u'/'},
};

bool IsDirectionMark(char16_t c) {
  return c == 0x200E || c == 0x200F || c == 0x061C || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

// A format cut into runs of one letter and single other characters; quoted text is one literal.
struct FormatPart {
  QChar Letter;  // null for a literal
  qsizetype Count = 0;
  QString Literal;
};

std::vector<FormatPart> PartsOf(const QString& format) {
  std::vector<FormatPart> parts;
  bool quoted = false;
  for (const QChar c : format) {
    if (c == u'\'') {
      quoted = !quoted;
    } else if (!quoted && c.isLetter()) {
      if (parts.empty() || parts.back().Letter != c) parts.push_back({c, 0, {}});
      ++parts.back().Count;
    } else {
      if (parts.empty() || !parts.back().Letter.isNull()) parts.push_back({});
      parts.back().Literal += c;
    }
  }
  return parts;
}

// Of a literal, what the code page has and nobody takes for a part of the date.
std::string DateLiteral(const QString& literal) {
  std::string text;
  for (const QChar c : literal) text += c.isLetter() ? "" : WithStandIns(c).value_or("");
  return text;
}

std::string DatePart(const FormatPart& part) {
  const auto count = static_cast<std::size_t>(std::clamp<qsizetype>(part.Count, 1, 2));
  if (part.Letter == u'd') return part.Count <= 2 ? std::string(count, 'd') : "";
  if (part.Letter == u'M' || part.Letter == u'L') return std::string(count, 'M');
  if (part.Letter == u'y') return "yyyy";
  return "";
}

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" ,");
  const auto last = text.find_last_not_of(" ,");
  return first == std::string::npos ? "" : text.substr(first, last - first + 1);
}

}  // namespace

std::optional<std::string> WithStandIns(const QString& text) {
  QString plain;
  for (const QChar c : text) {
    if (IsDirectionMark(c.unicode())) continue;
    const auto* const found = std::find_if(std::begin(kStandIns), std::end(kStandIns),
                                           [&](const StandIn& s) { return s.Foreign == c; });
    plain += found == std::end(kStandIns) ? c : QChar(found->Ours);
  }
  return ToCodePage(plain);
}

std::string ShortDateFormat(const QString& format) {
  std::string result;
  for (const FormatPart& part : PartsOf(format)) {
    result += part.Letter.isNull() ? DateLiteral(part.Literal) : DatePart(part);
  }
  for (const char letter : {'d', 'M', 'y'}) {
    if (result.find(letter) == std::string::npos) return "yyyy-MM-dd";
  }
  return Trimmed(result);
}

std::string TimeSeparatorIn(const QString& format) {
  bool afterHour = false;
  for (const FormatPart& part : PartsOf(format)) {
    if (part.Letter == u'h' || part.Letter == u'H') {
      afterHour = true;
    } else if (afterHour && part.Letter.isNull()) {
      return WithStandIns(part.Literal).value_or(":");
    } else {
      afterHour = false;
    }
  }
  return ":";
}

std::string CurrencyPattern(const QString& amount, const QString& symbol) {
  QString rest = amount;
  const auto digit = [](QChar c) { return c.isDigit(); };
  const auto first = std::find_if(rest.begin(), rest.end(), digit);
  const auto last = std::find_if(rest.rbegin(), rest.rend(), digit);
  if (first == rest.end()) return "$n";
  rest.replace(first - rest.begin(), last.base() - first, "n");
  rest.replace(symbol, "$");
  return WithStandIns(rest).value_or("$n");
}

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

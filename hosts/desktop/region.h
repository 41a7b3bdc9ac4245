// The person's region as Qt knows it, in the program's terms.
#pragma once

#include <QLocale>
#include <QString>
#include <optional>
#include <string>

#include "region/regional_settings.h"

namespace quillbox {

// With stand-ins for marks that the code page lacks: blanks of any width, minus signs, the decimal
// and group marks of other scripts; marks of writing direction are dropped. Nothing when a
// character is left that has no stand-in.
std::optional<std::string> WithStandIns(const QString& text);

// A date format of Qt's with d, dd, M, MM, and yyyy only, names of months as MM. A year of two
// digits gets four, so that a stored date can be read back in any century. ISO form when a part is
// missing.
std::string ShortDateFormat(const QString& format);

// What stands between hours and minutes in a time format of Qt's; ":" when that can't be told.
std::string TimeSeparatorIn(const QString& format);

// An amount that Qt wrote with `symbol` in it, as a pattern: "$" where the symbol is, "n" for the
// digits and what is between them.
std::string CurrencyPattern(const QString& amount, const QString& symbol);

// The person's region as Qt knows it, in the program's terms.
// What the code page lacks is replaced: a narrow blank by the no-break blank, foreign marks by
// plain ones, a currency symbol by its three-letter code, names of days and months by the English
// ones. A locale without a language ("C") is en-US.
RegionalSettings RegionOf(const QLocale& locale);

}  // namespace quillbox

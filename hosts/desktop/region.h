// The person's region as Qt knows it, in the program's terms.
#pragma once

#include <QLocale>
#include <QString>
#include <string>

#include "region/regional_settings.h"

namespace quillbox {

// An amount that Qt wrote with `symbol` in it, as a pattern: "$" where the symbol is, "n" for the
// digits and what is between them.
std::string CurrencyPattern(const QString& amount, const QString& symbol);

// The person's region as Qt knows it, in the program's terms.
// What the code page lacks is replaced: a narrow blank by the no-break blank, foreign marks by
// plain ones, a currency symbol by its three-letter code, names of days and months by the English
// ones. A locale without a language ("C") is en-US.
RegionalSettings RegionOf(const QLocale& locale);

}  // namespace quillbox

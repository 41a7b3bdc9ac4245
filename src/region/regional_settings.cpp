#include "region/regional_settings.h"

namespace quillbox {
namespace {

using Weekdays = std::array<std::string, 7>;
using Months = std::array<std::string, 12>;

// Letters above 127 are windows-1252, in octal, since an octal escape ends after three digits: \200
// is the euro sign, \240 the no-break blank.

RegionalSettings UnitedStates() {
  return {};
}

RegionalSettings UnitedKingdom() {
  RegionalSettings region;
  region.CurrencySymbol = "\243";
  region.NegativeCurrency = "-$n";
  region.ShortDate = "dd/MM/yyyy";
  region.Am = "am";
  region.Pm = "pm";
  return region;
}

RegionalSettings Germany() {
  RegionalSettings region;
  region.Decimal = ",";
  region.Group = ".";
  region.CurrencySymbol = "\200";
  region.PositiveCurrency = "n $";
  region.NegativeCurrency = "-n $";
  region.ShortDate = "dd.MM.yyyy";
  region.Weekdays =
      Weekdays{"Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag"};
  region.Months = Months{"Januar", "Februar", "M\344rz",   "April",   "Mai",      "Juni",
                         "Juli",   "August",  "September", "Oktober", "November", "Dezember"};
  region.MonthsShort =
      Months{"Jan", "Feb", "M\344r", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
  return region;
}

RegionalSettings Switzerland() {
  RegionalSettings region = Germany();
  region.Decimal = ".";
  region.Group = "'";
  region.CurrencySymbol = "CHF";
  region.PositiveCurrency = "$ n";
  region.NegativeCurrency = "$-n";
  return region;
}

RegionalSettings France() {
  RegionalSettings region;
  region.Decimal = ",";
  region.Group = "\240";
  region.CurrencySymbol = "\200";
  region.PositiveCurrency = "n $";
  region.NegativeCurrency = "-n $";
  region.ShortDate = "dd/MM/yyyy";
  region.Weekdays =
      Weekdays{"dimanche", "lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi"};
  region.Months =
      Months{"janvier", "f\351vrier", "mars",      "avril",   "mai",      "juin",
             "juillet", "ao\373t",    "septembre", "octobre", "novembre", "d\351cembre"};
  region.MonthsShort = Months{"janv.", "f\351vr.", "mars",  "avr.", "mai",  "juin",
                              "juil.", "ao\373t",  "sept.", "oct.", "nov.", "d\351c."};
  return region;
}

RegionalSettings Sweden() {
  RegionalSettings region;
  region.Decimal = ",";
  region.Group = "\240";
  region.CurrencySymbol = "kr";
  region.PositiveCurrency = "n $";
  region.NegativeCurrency = "-n $";
  region.ShortDate = "yyyy-MM-dd";
  region.Am = "fm";
  region.Pm = "em";
  region.Weekdays =
      Weekdays{"s\366ndag", "m\345ndag", "tisdag", "onsdag", "torsdag", "fredag", "l\366rdag"};
  region.Months = Months{"januari", "februari", "mars",      "april",   "maj",      "juni",
                         "juli",    "augusti",  "september", "oktober", "november", "december"};
  region.MonthsShort =
      Months{"jan", "feb", "mar", "apr", "maj", "jun", "jul", "aug", "sep", "okt", "nov", "dec"};
  return region;
}

RegionalSettings Brazil() {
  RegionalSettings region;
  region.Decimal = ",";
  region.Group = ".";
  region.CurrencySymbol = "R$";
  region.PositiveCurrency = "$ n";
  region.NegativeCurrency = "-$ n";
  region.ShortDate = "dd/MM/yyyy";
  region.Weekdays = Weekdays{"domingo",      "segunda-feira", "ter\347a-feira", "quarta-feira",
                             "quinta-feira", "sexta-feira",   "s\341bado"};
  region.Months = Months{"janeiro", "fevereiro", "mar\347o", "abril",   "maio",     "junho",
                         "julho",   "agosto",    "setembro", "outubro", "novembro", "dezembro"};
  region.MonthsShort =
      Months{"jan", "fev", "mar", "abr", "mai", "jun", "jul", "ago", "set", "out", "nov", "dez"};
  return region;
}

struct NamedRegion {
  std::string_view Name;
  RegionalSettings (*Settings)();
};

constexpr NamedRegion kRegions[] = {
    {"en-US", UnitedStates}, {"en-GB", UnitedKingdom}, {"de-DE", Germany}, {"fr-FR", France},
    {"de-CH", Switzerland},  {"sv-SE", Sweden},        {"pt-BR", Brazil},
};

}  // namespace

std::optional<RegionalSettings> BuiltInRegion(std::string_view name) {
  for (const NamedRegion& region : kRegions) {
    if (region.Name == name) return region.Settings();
  }
  return std::nullopt;
}

}  // namespace quillbox

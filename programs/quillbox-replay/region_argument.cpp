#include "quillbox-replay/region_argument.h"

#include <algorithm>
#include <array>

#include "evaluation/regions.h"

namespace quillbox {
namespace {

// What GroupedText, CurrencyText and their kin can be asked for.
constexpr int kMostDecimals = 99;

void ReadText(const Request& region, std::string_view name, std::string& text) {
  if (region.Has(name)) text = region.Text(name);
}

template <std::size_t Count>
void ReadNames(const Request& region, std::string_view name,
               std::array<std::string, Count>& names) {
  if (!region.Has(name)) return;
  std::vector<std::string> texts = region.Texts(name);
  if (texts.size() != Count) {
    throw RequestError("member \"" + region.PathOf(name) + "\" must hold " + std::to_string(Count) +
                       " texts");
  }
  std::move(texts.begin(), texts.end(), names.begin());
}

void ReadCurrencyDecimals(const Request& region, int& decimals) {
  if (!region.Has("currencyDecimals")) return;
  decimals = region.WholeNumber("currencyDecimals");
  if (decimals < 0 || decimals > kMostDecimals) {
    throw RequestError("member \"region.currencyDecimals\" must be from 0 to 99");
  }
}

RegionalSettings DescribedRegion(const Request& region) {
  RegionalSettings settings;
  ReadText(region, "decimal", settings.Decimal);
  ReadText(region, "group", settings.Group);
  ReadText(region, "currencySymbol", settings.CurrencySymbol);
  ReadCurrencyDecimals(region, settings.CurrencyDecimals);
  ReadText(region, "positiveCurrency", settings.PositiveCurrency);
  ReadText(region, "negativeCurrency", settings.NegativeCurrency);
  ReadText(region, "shortDate", settings.ShortDate);
  ReadText(region, "timeSeparator", settings.TimeSeparator);
  ReadText(region, "am", settings.Am);
  ReadText(region, "pm", settings.Pm);
  ReadNames(region, "weekdays", settings.Weekdays);
  ReadNames(region, "months", settings.Months);
  ReadNames(region, "monthsShort", settings.MonthsShort);
  return settings;
}

}  // namespace

RegionalSettings RegionOf(const Request& request) {
  const JsonValue& region = request.Member("region");
  if (region.Kind == JsonValue::Type::kObject) return DescribedRegion(request.Object("region"));
  if (region.Kind != JsonValue::Type::kString) {
    throw RequestError("member \"region\" must be a name or an object");
  }
  std::optional<RegionalSettings> builtIn = BuiltInRegion(region.Text);
  if (!builtIn) throw RequestError("unknown region \"" + region.Text + "\"");
  return *std::move(builtIn);
}

}  // namespace quillbox

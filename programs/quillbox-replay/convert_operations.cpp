// Single conversions, one function a request.
#include <charconv>
#include <cstddef>
#include <optional>
#include <variant>

#include "config/account_list.h"
#include "evaluation/report_row.h"
#include "options/page_parts.h"
#include "quillbox-replay/formats/iso_time.h"
#include "quillbox-replay/request.h"
#include "region/conversions.h"
#include "region/date_text.h"
#include "region/failure_rule.h"
#include "region/number_text.h"
#include "retrieval/auto_update.h"
#include "text/escaping.h"
#include "tooltip/skin.h"

namespace quillbox {
namespace {

// Null for no colour.
using Result = std::variant<std::string, double, std::nullptr_t>;

struct Function {
  std::string_view Name;
  Result (*Run)(const Request& request);
};

const std::string& TextArgument(const Request& request) {
  return request.Text("argument");
}

double NumberArgument(const Request& request) {
  return NumberOf(request.Member("argument", JsonValue::Type::kNumber), "argument");
}

bool IsNumber(const Request& request) {
  const JsonValue::Type kind = request.Member("argument").Kind;
  if (kind != JsonValue::Type::kNumber && kind != JsonValue::Type::kString) {
    throw RequestError("member \"argument\" must be a number or a text");
  }
  return kind == JsonValue::Type::kNumber;
}

// An amount in ten-thousandths: {"currency":"12300"}.
std::int64_t AmountArgument(const Request& request) {
  const std::string& digits = request.Object("argument").Text("currency");
  std::int64_t amount = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), amount);
  if (error != std::errc{} || end != digits.data() + digits.size()) {
    throw RequestError("member \"argument.currency\" must be a whole number of 64 bits");
  }
  return amount;
}

std::optional<int> DecimalsOf(const Request& request) {
  if (!request.Has("decimals")) return std::nullopt;
  return request.WholeNumber("decimals");
}

Result ConvertToDate(const Request& request) {
  return DateArgument(ToDate(TextArgument(request), RegionOf(request), YearOf(TimeOf(request))));
}

Result ConvertNumberText(const Request& request) {
  const RegionalSettings region = RegionOf(request);
  if (request.Member("argument").Kind == JsonValue::Type::kObject) {
    return NumberTextOfCurrency(AmountArgument(request), region);
  }
  return NumberText(NumberArgument(request), region);
}

Result ConvertCurrencyText(const Request& request) {
  const RegionalSettings region = RegionOf(request);
  const std::optional<int> decimals = DecimalsOf(request);
  return IsNumber(request) ? CurrencyText(NumberArgument(request), decimals, region)
                           : CurrencyText(TextArgument(request), decimals, region);
}

Result ConvertGroupedText(const Request& request) {
  const RegionalSettings region = RegionOf(request);
  return IsNumber(request) ? GroupedText(NumberArgument(request), region)
                           : GroupedText(TextArgument(request), region);
}

Result ConvertShortDate(const Request& request) {
  const auto date = ParseDate(TextArgument(request));
  if (!date) throw RequestError("member \"argument\" must be a date such as 2007-01-31");
  return ShortDate(*date, RegionOf(request));
}

Result ConvertTimeText(const Request& request) {
  const auto time = ParseTimeOfDay(TextArgument(request));
  if (!time) throw RequestError("member \"argument\" must be a time of day such as 09:05:00");
  return TimeText(*time, request.Truth("use24Hour"), RegionOf(request));
}

Result ConvertFileNameOf(const Request& request) {
  return FileNameOf(TextArgument(request), '/');
}

// A change of one cell in its place.
template <void Fix(std::string&, const RegionalSettings&)>
Result Fixed(const Request& request) {
  std::string cell = TextArgument(request);
  Fix(cell, RegionOf(request));
  return cell;
}

constexpr Function kFunctions[] = {
    {"LeadingNumber", [](const Request& r) -> Result { return LeadingNumber(TextArgument(r)); }},
    {"ToDouble", [](const Request& r) -> Result { return ToDouble(TextArgument(r), RegionOf(r)); }},
    {"ToCurrency",
     [](const Request& r) -> Result {
       return std::to_string(ToCurrency(TextArgument(r), RegionOf(r)));
     }},
    {"ToDecimal",
     [](const Request& r) -> Result { return ToDecimal(TextArgument(r), RegionOf(r)).Text(); }},
    {"ToLong",
     [](const Request& r) -> Result {
       return static_cast<double>(ToLong(TextArgument(r), RegionOf(r)));
     }},
    {"ToDate", ConvertToDate},
    {"NumberText", ConvertNumberText},
    {"CurrencyText", ConvertCurrencyText},
    {"GroupedText", ConvertGroupedText},
    {"CtrText", [](const Request& r) -> Result { return CtrText(NumberArgument(r), RegionOf(r)); }},
    {"EcpmText",
     [](const Request& r) -> Result { return EcpmText(NumberArgument(r), RegionOf(r)); }},
    {"ShortDate", ConvertShortDate},
    {"TimeText", ConvertTimeText},
    {"FixPercentCell", Fixed<FixPercentCell>},
    {"FixMoneyCell", Fixed<FixMoneyCell>},
    {"NormalizeReportCell",
     [](const Request& r) -> Result { return NormalizeReportCell(TextArgument(r)); }},
    {"KeepNumberChars",
     [](const Request& r) -> Result { return KeepNumberChars(TextArgument(r)); }},
    {"PeriodCharacter", [](const Request& r) -> Result { return PeriodCharacter(RegionOf(r)); }},
    {"CommaCharacter", [](const Request& r) -> Result { return CommaCharacter(RegionOf(r)); }},
    {"RateMinutes",
     [](const Request& r) -> Result { return static_cast<double>(RateMinutes(TextArgument(r))); }},
    {"SkinColor",
     [](const Request& r) -> Result {
       const std::optional<SkinColorValue> color = SkinColor(TextArgument(r));
       if (!color) return nullptr;
       return static_cast<double>(*color);
     }},
    {"ScrambleText", [](const Request& r) -> Result { return ScrambleText(TextArgument(r)); }},
    {"UnscrambleText", [](const Request& r) -> Result { return UnscrambleText(TextArgument(r)); }},
    {"EncodeFormValue",
     [](const Request& r) -> Result { return EncodeFormValue(TextArgument(r)); }},
    {"FileNameOf", ConvertFileNameOf},
};

const Function& FunctionOf(const Request& request) {
  const std::string& name = request.Text("function");
  for (const Function& function : kFunctions) {
    if (function.Name == name) return function;
  }
  throw RequestError("unknown function \"" + name + "\"");
}

void WriteResult(JsonWriter& answer, const Result& result) {
  answer.Name("result");
  if (const auto* text = std::get_if<std::string>(&result)) {
    answer.Text(*text);
  } else if (const auto* number = std::get_if<double>(&result)) {
    answer.Number(*number);
  } else {
    answer.Null();
  }
}

void Convert(const Request& request, JsonWriter& answer) {
  const Function& function = FunctionOf(request);
  try {
    WriteResult(answer, function.Run(request));
  } catch (const ConversionFailed&) {
    answer.Name("refused");
    answer.Truth(true);
  }
}

constexpr Operation kConvertOperations[] = {{"convert", Convert}};

}  // namespace

std::span<const Operation> ConvertOperations() {
  return kConvertOperations;
}

}  // namespace quillbox

#include "quillbox-replay/request.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "quillbox-replay/formats/iso_time.h"
#include "system/system_surroundings.h"

namespace quillbox {
namespace {

std::string_view NameOf(JsonValue::Type kind) {
  switch (kind) {
    case JsonValue::Type::kNull:
      return "null";
    case JsonValue::Type::kBoolean:
      return "true or false";
    case JsonValue::Type::kNumber:
      return "a number";
    case JsonValue::Type::kString:
      return "a text";
    case JsonValue::Type::kArray:
      return "a list";
    case JsonValue::Type::kObject:
      return "an object";
  }
  return {};
}

}  // namespace

const JsonValue& Request::Member(std::string_view name) const {
  const JsonValue* member = object_.Find(name);
  if (member == nullptr) throw RequestError("member \"" + PathOf(name) + "\" is missing");
  return *member;
}

const JsonValue& Request::Member(std::string_view name, JsonValue::Type kind) const {
  const JsonValue& member = Member(name);
  if (member.Kind != kind) {
    throw RequestError("member \"" + PathOf(name) + "\" must be " + std::string(NameOf(kind)));
  }
  return member;
}

const std::string& Request::Text(std::string_view name) const {
  return Member(name, JsonValue::Type::kString).Text;
}

bool Request::Truth(std::string_view name) const {
  return Member(name, JsonValue::Type::kBoolean).Truth;
}

std::int32_t Request::WholeNumber(std::string_view name) const {
  const double number = NumberOf(Member(name, JsonValue::Type::kNumber), PathOf(name));
  const auto whole = number >= -2147483648.0 && number <= 2147483647.0
                         ? static_cast<std::int32_t>(number)
                         : std::int32_t{0};
  if (static_cast<double>(whole) != number) {
    throw RequestError("member \"" + PathOf(name) + "\" must be a whole number of 32 bits");
  }
  return whole;
}

std::vector<std::string> Request::Texts(std::string_view name) const {
  std::vector<std::string> texts;
  for (const JsonValue& item : Member(name, JsonValue::Type::kArray).Items) {
    if (item.Kind != JsonValue::Type::kString) {
      throw RequestError("member \"" + PathOf(name) + "\" must be a list of texts");
    }
    texts.push_back(item.Text);
  }
  return texts;
}

Request Request::Object(std::string_view name) const {
  return Request(Member(name, JsonValue::Type::kObject), PathOf(name));
}

std::chrono::local_seconds Request::Time(std::string_view name) const {
  const auto time = ParseDateAndTime(Text(name));
  if (!time) {
    throw RequestError("member \"" + PathOf(name) +
                       "\" must be a date and time such as 2007-01-31T09:05:00");
  }
  return *time;
}

std::string Request::PathOf(std::string_view name) const {
  return path_.empty() ? std::string(name) : path_ + "." + std::string(name);
}

double NumberOf(const JsonValue& value, std::string_view what) {
  double number = 0;
  const char* const end = value.Source.data() + value.Source.size();
  const auto result = std::from_chars(value.Source.data(), end, number);
  if (result.ec != std::errc{} || result.ptr != end) {
    throw RequestError("member \"" + std::string(what) + "\" is outside the range of numbers");
  }
  return number;
}

std::chrono::local_seconds TimeOf(const Request& request) {
  return request.Has("now") ? request.Time("now") : SystemClock().LocalTime();
}

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

MemoryStore SettingsOf(const Request& request) {
  MemoryStore store;
  if (!request.Has("settings")) return store;  // left out means empty
  const Request settings = request.Object("settings");
  for (const JsonMember& section : settings.Members()) {
    const Request keys = settings.Object(section.Name);
    for (const JsonMember& key : keys.Members()) {
      if (key.Value.Kind != JsonValue::Type::kString) {
        throw RequestError("member \"" + keys.PathOf(key.Name) + "\" must be a text");
      }
      store.Write(section.Name, key.Name, key.Value.Text);
    }
  }
  return store;
}

void WriteSettings(JsonWriter& answer, const MemoryStore& store) {
  answer.BeginObject();
  for (const auto& [foldedName, section] : store.Sections()) {
    answer.Name(section.Name);
    answer.BeginObject();
    for (const auto& [foldedKey, setting] : section.Settings) {
      answer.Name(setting.Key);
      answer.Text(setting.Value);
    }
    answer.EndObject();
  }
  answer.EndObject();
}

}  // namespace quillbox

// The members of one step of a script, checked as they are read.
#include "simulated/script_members.h"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "text/code_page.h"

namespace quillbox {
namespace {

using nlohmann::json;
using std::chrono::milliseconds;

[[noreturn]] void Refuse(const std::string& name, const std::string& why) {
  throw ScriptError{QuotedInError(name) + ' ' + why};
}

std::string TextOf(const std::string& name, const json& value) {
  if (!value.is_string()) Refuse(name, "must be a text");
  auto text = FromUtf8(value.get_ref<const std::string&>());
  if (!text) Refuse(name, "holds a character outside of windows-1252");
  return *std::move(text);
}

std::optional<milliseconds> TakeUnit(std::string_view& text) {
  struct Unit {
    std::string_view Name;
    milliseconds Length;
  };
  using namespace std::chrono_literals;
  static constexpr Unit kUnits[] = {{"ms", 1ms}, {"s", 1s}, {"m", 1min}, {"h", 1h}, {"d", 24h}};
  for (const Unit& unit : kUnits) {
    if (!text.starts_with(unit.Name)) continue;
    text.remove_prefix(unit.Name.size());
    return unit.Length;
  }
  return {};
}

std::optional<int> TakeCount(std::string_view& text) {
  constexpr std::size_t kMostDigits = 6;
  std::size_t digits = 0;
  int count = 0;
  for (; digits < text.size() && text[digits] >= '0' && text[digits] <= '9'; ++digits) {
    if (digits == kMostDigits) return {};
    count = count * 10 + (text[digits] - '0');
  }
  text.remove_prefix(digits);
  if (digits == 0) return {};
  return count;
}

std::optional<milliseconds> ReadDuration(std::string_view text) {
  constexpr milliseconds kLongest = std::chrono::days(999'999);
  milliseconds sum{0};
  if (text.empty()) return {};
  while (!text.empty()) {
    const auto count = TakeCount(text);
    const auto unit = count ? TakeUnit(text) : std::nullopt;
    if (!unit) return {};
    sum += *count * *unit;
    if (sum > kLongest) return {};
  }
  return sum;
}

std::optional<std::chrono::local_seconds> ReadTime(const std::string& text) {
  int year = 0, hour = 0, minute = 0, second = 0, end = 0;
  unsigned month = 0, day = 0;
  const int read = std::sscanf(text.c_str(), "%4d-%2u-%2uT%2d:%2d:%2d%n", &year, &month, &day,
                               &hour, &minute, &second, &end);
  if (read != 6 || static_cast<std::size_t>(end) != text.size()) return {};
  const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month),
                                         std::chrono::day(day)};
  const bool inDay =
      hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
  if (!date.ok() || !inDay) return {};
  return std::chrono::local_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
         std::chrono::seconds(second);
}

}  // namespace

std::string QuotedInError(std::string utf8) {
  std::ranges::replace_if(
      utf8, [](unsigned char c) { return c < 0x20; }, ' ');
  return '"' + utf8 + '"';
}

ScriptMembers::ScriptMembers(const json& step) : step_(step) {
  if (!step.is_object()) throw ScriptError{"not a JSON object"};
}

const json* ScriptMembers::Find(const char* name) {
  known_.insert(name);
  const auto member = step_.find(name);
  return member == step_.end() ? nullptr : &*member;
}

const json& ScriptMembers::Get(const char* name) {
  const json* value = Find(name);
  if (value == nullptr) Refuse(name, "is missing");
  return *value;
}

std::string ScriptMembers::Text(const char* name) {
  return TextOf(name, Get(name));
}

std::optional<std::string> ScriptMembers::MaybeText(const char* name) {
  const json* value = Find(name);
  if (value == nullptr) return {};
  return TextOf(name, *value);
}

bool ScriptMembers::Flag(const char* name, bool whenMissing) {
  const json* value = Find(name);
  if (value == nullptr) return whenMissing;
  if (!value->is_boolean()) Refuse(name, "must be true or false");
  return value->get<bool>();
}

bool ScriptMembers::IsFlag(const char* name) {
  const json* value = Find(name);
  return value != nullptr && value->is_boolean();
}

std::uint64_t ScriptMembers::Number(const char* name, std::uint64_t whenMissing) {
  const json* value = Find(name);
  if (value == nullptr) return whenMissing;
  if (!value->is_number_unsigned()) Refuse(name, "must be a whole number from 0");
  return value->get<std::uint64_t>();
}

milliseconds ScriptMembers::Duration(const char* name) {
  const auto duration = ReadDuration(Text(name));
  if (!duration) Refuse(name, "must be a duration such as \"1h30m\"");
  return *duration;
}

std::optional<milliseconds> ScriptMembers::MaybeDuration(const char* name) {
  if (Find(name) == nullptr) return {};
  return Duration(name);
}

std::optional<std::chrono::local_seconds> ScriptMembers::MaybeTime(const char* name) {
  const auto text = MaybeText(name);
  if (!text) return {};
  const auto time = ReadTime(*text);
  if (!time) Refuse(name, "must be a time such as \"2007-01-31T09:05:00\"");
  return time;
}

std::vector<ScriptMembers::Setting> ScriptMembers::Settings(const char* name) {
  std::vector<Setting> settings;
  const json& sections = Get(name);
  if (!sections.is_object()) Refuse(name, "must be an object of sections");
  for (const auto& [section, keys] : sections.items()) {
    if (!keys.is_object()) Refuse(section, "must be an object of keys");
    for (const auto& [key, value] : keys.items()) {
      settings.push_back({TextOf(name, section), TextOf(name, key), TextOf(key, value)});
    }
  }
  return settings;
}

void ScriptMembers::RefuseOthers() const {
  for (const auto& [name, value] : step_.items()) {
    if (!known_.contains(name)) Refuse(name, "is not known here");
  }
}

}  // namespace quillbox

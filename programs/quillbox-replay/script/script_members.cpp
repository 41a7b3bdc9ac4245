// The members of one step of a script, checked as they are read.
#include "quillbox-replay/script/script_members.h"

#include <algorithm>
#include <charconv>

#include "quillbox-replay/formats/iso_time.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

using Type = JsonValue::Type;
using std::chrono::milliseconds;

[[noreturn]] void Refuse(const std::string& name, const std::string& why) {
  throw ScriptError{QuotedInError(name) + ' ' + why};
}

const std::string& TextOf(const std::string& name, const JsonValue& value) {
  if (value.Kind != Type::kString) Refuse(name, "must be a text");
  if (value.OutsideCodePage) Refuse(name, "holds a character outside of windows-1252");
  return value.Text;
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

}  // namespace

std::string QuotedInError(std::string utf8) {
  std::ranges::replace_if(
      utf8, [](unsigned char c) { return c < 0x20; }, ' ');
  return '"' + utf8 + '"';
}

ScriptMembers::ScriptMembers(const JsonValue& step) : step_(step) {
  if (step.Kind != Type::kObject) throw ScriptError{"not a JSON object"};
}

const JsonValue* ScriptMembers::Find(const char* name) {
  known_.insert(name);
  return step_.Find(name);
}

const JsonValue& ScriptMembers::Get(const char* name) {
  const JsonValue* value = Find(name);
  if (value == nullptr) Refuse(name, "is missing");
  return *value;
}

std::string ScriptMembers::Text(const char* name) {
  return TextOf(name, Get(name));
}

std::optional<std::string> ScriptMembers::MaybeText(const char* name) {
  const JsonValue* value = Find(name);
  if (value == nullptr) return {};
  return TextOf(name, *value);
}

bool ScriptMembers::Flag(const char* name, bool whenMissing) {
  const JsonValue* value = Find(name);
  if (value == nullptr) return whenMissing;
  if (value->Kind != Type::kBoolean) Refuse(name, "must be true or false");
  return value->Truth;
}

bool ScriptMembers::IsFlag(const char* name) {
  const JsonValue* value = Find(name);
  return value != nullptr && value->Kind == Type::kBoolean;
}

std::uint64_t ScriptMembers::Number(const char* name, std::uint64_t whenMissing) {
  const JsonValue* value = Find(name);
  if (value == nullptr) return whenMissing;
  const std::string_view digits = value->Source;
  std::uint64_t number = 0;
  const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (failure != std::errc{} || end != digits.data() + digits.size()) {
    Refuse(name, "must be a whole number from 0");
  }
  return number;
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
  const auto time = ParseDateAndTime(*text);
  if (!time) Refuse(name, "must be a time such as \"2007-01-31T09:05:00\"");
  return time;
}

std::vector<ScriptMembers::Setting> ScriptMembers::Settings(const char* name) {
  std::vector<Setting> settings;
  const JsonValue& sections = Get(name);
  if (sections.Kind != Type::kObject) Refuse(name, "must be an object of sections");
  for (const auto& [section, keys] : sections.Members) {
    if (keys.Kind != Type::kObject) Refuse(ToUtf8(section), "must be an object of keys");
    for (const auto& [key, value] : keys.Members) {
      settings.push_back({section, key, TextOf(ToUtf8(key), value)});
    }
  }
  return settings;
}

void ScriptMembers::RefuseOthers() const {
  for (const auto& [name, value] : step_.Members) {
    if (!known_.contains(name)) Refuse(ToUtf8(name), "is not known here");
  }
}

ScriptForm ReadForm(ScriptMembers& members) {
  const auto form = members.OneOf<FormName>("form", {{"Opts", FormName::kOpts},
                                                     {"Account", FormName::kAccount},
                                                     {"ReportsWin", FormName::kReportsWin},
                                                     {"AboutWin", FormName::kAboutWin}});
  return {form, members.Text("form")};
}

}  // namespace quillbox

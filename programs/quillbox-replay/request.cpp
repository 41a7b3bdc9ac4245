#include "quillbox-replay/request.h"

#include <charconv>

#include "quillbox-replay/date_argument.h"

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

}  // namespace quillbox

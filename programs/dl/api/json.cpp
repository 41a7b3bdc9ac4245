#include "api/json.h"

#include <charconv>

namespace quillbox {

std::optional<Json> ParseObject(std::string_view text) {
  Json value = Json::parse(text.begin(), text.end(), nullptr, false);
  if (!value.is_object()) return std::nullopt;
  return value;
}

std::optional<double> ParseNumber(std::string_view text) {
  const Json value = Json::parse(text.begin(), text.end(), nullptr, false);
  return value.is_number() ? std::optional(value.get<double>()) : std::nullopt;
}

const Json* Member(const Json& value, const char* name) {
  if (!value.is_object()) return nullptr;
  const auto found = value.find(name);
  return found == value.end() ? nullptr : &*found;
}

const Json::array_t* ArrayMember(const Json& value, const char* name) {
  const Json* const member = Member(value, name);
  return member == nullptr ? nullptr : member->get_ptr<const Json::array_t*>();
}

std::string TextMember(const Json& value, const char* name) {
  const Json* const member = Member(value, name);
  const auto* const text = member == nullptr ? nullptr : member->get_ptr<const std::string*>();
  return text == nullptr ? "" : *text;
}

std::optional<long long> NumberMember(const Json& value, const char* name) {
  const Json* const member = Member(value, name);
  if (member == nullptr) return std::nullopt;
  if (const auto* number = member->get_ptr<const Json::number_unsigned_t*>()) {
    return *number > static_cast<unsigned long long>(INT64_MAX)
               ? std::nullopt
               : std::optional(static_cast<long long>(*number));
  }
  if (const auto* number = member->get_ptr<const Json::number_integer_t*>()) return *number;
  const auto* const text = member->get_ptr<const std::string*>();
  if (text == nullptr) return std::nullopt;
  long long number = 0;
  const char* const end = text->data() + text->size();
  const auto [stop, error] = std::from_chars(text->data(), end, number);
  return error == std::errc() && stop == end && !text->empty() ? std::optional(number)
                                                               : std::nullopt;
}

}  // namespace quillbox

#include "api/json.h"

#include <array>
#include <charconv>
#include <optional>
#include <set>
#include <utility>

#include "text/code_page.h"

namespace quillbox {
namespace {

constexpr std::size_t kMostLevels = 16;
constexpr std::size_t kLongestNumber = 64;  // far more than any that counts

// Stops the parser at the bounds, and at a name that an object has twice, since nobody says which
// of its values holds. It builds nothing: the parser's callback for values that are being
// built goes through the whole list again at the end of each member.
class Checker : public nlohmann::json_sax<Json> {
 public:
  explicit Checker(std::size_t mostValues) : left_(mostValues) {}

  bool null() override { return Counts(); }
  bool boolean(bool) override { return Counts(); }
  bool number_integer(number_integer_t) override { return Counts(); }
  bool number_unsigned(number_unsigned_t) override { return Counts(); }
  bool number_float(number_float_t, const string_t&) override { return Counts(); }
  bool string(string_t&) override { return Counts(); }
  bool binary(binary_t&) override { return Counts(); }
  bool key(string_t& name) override { return Counts() && names_[levels_ - 1].insert(name).second; }
  bool start_object(std::size_t) override { return Begins(); }
  bool end_object() override { return Ends(); }
  bool start_array(std::size_t) override { return Begins(); }
  bool end_array() override { return Ends(); }
  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override {
    return false;
  }

 private:
  bool Counts() { return left_-- > 0; }
  bool Begins() {
    if (levels_ == kMostLevels) return false;
    names_[levels_++].clear();
    return Counts();
  }
  bool Ends() {
    --levels_;
    return true;
  }

  std::size_t left_;
  std::size_t levels_ = 0;
  std::array<std::set<std::string>, kMostLevels> names_;  // of the object on each level
};

// The parser takes a NUL for the end of the text.
bool HoldsNul(std::string_view text) {
  return text.find('\0') != std::string_view::npos;
}

}  // namespace

std::optional<Json> ParseObject(std::string_view text, const JsonBounds& bounds) {
  if (text.size() > bounds.Bytes || HoldsNul(text)) return std::nullopt;
  Checker checker(bounds.Values);
  if (!Json::sax_parse(text.begin(), text.end(), &checker)) return std::nullopt;
  Json value = Json::parse(text.begin(), text.end(), nullptr, false);
  if (!value.is_object()) return std::nullopt;
  return std::optional<Json>(std::in_place, std::move(value));
}

std::optional<double> ParseNumber(std::string_view text) {
  // The parser would also take blanks, and in front a mark of a file's encoding.
  if (text.empty() || text.size() > kLongestNumber || HoldsNul(text)) return std::nullopt;
  if (text[0] != '-' && !IsDigit(text[0])) return std::nullopt;
  if (!IsDigit(text.back())) return std::nullopt;
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

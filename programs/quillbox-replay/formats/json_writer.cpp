#include "quillbox-replay/formats/json_writer.h"

#include <array>
#include <charconv>
#include <cmath>

#include "text/code_page.h"

namespace quillbox {

void JsonWriter::Text(std::string_view text) {
  const std::string utf8 = ToUtf8(text);
  writer_.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
}

void JsonWriter::TextOrNull(const std::optional<std::string>& text) {
  if (text) {
    Text(*text);
  } else {
    Null();
  }
}

void JsonWriter::Texts(std::span<const std::string> texts) {
  BeginArray();
  for (const std::string& text : texts) Text(text);
  EndArray();
}

void JsonWriter::Number(double number) {
  // Plain digits where people would write them so; beyond that an exponent is shorter.
  const double size = std::abs(number);
  const bool plain = size == 0 || (size >= 1e-6 && size < 1e15);
  std::array<char, 64> digits{};
  const auto [end, error] =
      plain ? std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed)
            : std::to_chars(digits.begin(), digits.end(), number);
  Raw(std::string_view(digits.begin(), end));
}

void JsonWriter::Raw(std::string_view json) {
  writer_.RawValue(json.data(), json.size(), rapidjson::kNullType);
}

}  // namespace quillbox

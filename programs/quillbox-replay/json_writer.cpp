#include "quillbox-replay/json_writer.h"

#include <array>
#include <charconv>
#include <cmath>

#include "text/code_page.h"

namespace quillbox {
namespace {

bool StandsForItself(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code >= 0x20 && code < 0x80 && c != '"' && c != '\\';
}

void AppendEscaped(std::string& out, char c) {
  constexpr std::string_view kMeanings = "\"\\\n\r\t";
  constexpr std::string_view kLetters = "\"\\nrt";
  constexpr std::string_view kDigits = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(c);
  if (const std::size_t found = kMeanings.find(c); found != kMeanings.npos) {
    out += '\\';
    out += kLetters[found];
  } else if (code < 0x20) {
    out += "\\u00";
    out += kDigits[code / 16];
    out += kDigits[code % 16];
  } else {
    out += ToUtf8(std::string_view(&c, 1));
  }
}

}  // namespace

void JsonWriter::Name(std::string_view name) {
  BeforeValue();
  Quoted(name);
  out_ += ':';
  first_ = true;
}

void JsonWriter::Text(std::string_view text) {
  BeforeValue();
  Quoted(text);
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
  BeforeValue();
  out_ += json;
}

void JsonWriter::Open(char bracket) {
  BeforeValue();
  out_ += bracket;
  first_ = true;
}

void JsonWriter::Close(char bracket) {
  out_ += bracket;
  first_ = false;
}

void JsonWriter::BeforeValue() {
  if (!first_) out_ += ',';
  first_ = false;
}

void JsonWriter::Quoted(std::string_view text) {
  out_ += '"';
  while (!text.empty()) {
    std::size_t run = 0;
    while (run < text.size() && StandsForItself(text[run])) ++run;
    out_ += text.substr(0, run);
    if (run < text.size()) AppendEscaped(out_, text[run++]);
    text.remove_prefix(run);
  }
  out_ += '"';
}

}  // namespace quillbox

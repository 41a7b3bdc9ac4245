#include "text/letter_case.h"

#include <algorithm>

namespace quillbox {
namespace {

// Lower-case letters outside of ASCII and the rows 0xE0 to 0xFE, and their capitals.
struct Pair {
  unsigned char lower, upper;
};
constexpr Pair kScattered[] = {{0x9A, 0x8A}, {0x9C, 0x8C}, {0x9E, 0x8E}, {0xFF, 0x9F}};

constexpr bool IsLowerRow(unsigned char c) {
  return (c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7);
}
constexpr bool IsUpperRow(unsigned char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
}

template <char (*Map)(char)>
std::string Mapped(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), Map);
  return result;
}

}  // namespace

char UpperCase(char letter) {
  const auto c = static_cast<unsigned char>(letter);
  if (IsLowerRow(c)) return static_cast<char>(c - 0x20);
  for (const Pair& pair : kScattered) {
    if (c == pair.lower) return static_cast<char>(pair.upper);
  }
  return letter;
}

char LowerCase(char letter) {
  const auto c = static_cast<unsigned char>(letter);
  if (IsUpperRow(c)) return static_cast<char>(c + 0x20);
  for (const Pair& pair : kScattered) {
    if (c == pair.upper) return static_cast<char>(pair.lower);
  }
  return letter;
}

std::string UpperCase(std::string_view text) {
  return Mapped<UpperCase>(text);
}
std::string LowerCase(std::string_view text) {
  return Mapped<LowerCase>(text);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

bool LessIgnoringCase::operator()(std::string_view a, std::string_view b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return static_cast<unsigned char>(LowerCase(x)) < static_cast<unsigned char>(LowerCase(y));
  });
}

}  // namespace quillbox

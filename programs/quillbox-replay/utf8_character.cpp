#include "quillbox-replay/utf8_character.h"

namespace quillbox {
namespace {

// Bytes of a character and the least code point that needs so many, by its first byte.
struct Shape {
  std::size_t Length;
  char32_t Least;
  unsigned char FirstBits;
};

std::optional<Shape> ShapeOf(unsigned char first) {
  if (first < 0x80) return Shape{1, 0, 0x7F};
  if ((first & 0xE0) == 0xC0) return Shape{2, 0x80, 0x1F};
  if ((first & 0xF0) == 0xE0) return Shape{3, 0x800, 0x0F};
  if ((first & 0xF8) == 0xF0) return Shape{4, 0x10000, 0x07};
  return std::nullopt;
}

}  // namespace

std::optional<char32_t> TakeUtf8Character(std::string_view& in) {
  const auto first = static_cast<unsigned char>(in.front());
  const std::optional<Shape> shape = ShapeOf(first);
  if (!shape || in.size() < shape->Length) return std::nullopt;

  char32_t character = first & shape->FirstBits;
  for (std::size_t i = 1; i < shape->Length; ++i) {
    const auto next = static_cast<unsigned char>(in[i]);
    if ((next & 0xC0) != 0x80) return std::nullopt;
    character = (character << 6) | (next & 0x3FU);
  }
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (character < shape->Least || surrogate || character > 0x10FFFF) return std::nullopt;
  in.remove_prefix(shape->Length);
  return character;
}

}  // namespace quillbox

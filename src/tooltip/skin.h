// The look of the tooltip window, as its skin file gives it.
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/storage.h"
#include "text/text_list.h"

namespace quillbox {

// Red in the low byte, then green, then blue.
using SkinColorValue = std::int32_t;

// Texts as read; empty fields mean what their comment says.
struct Skin {
  std::string BackColor;  // a whole number; empty: the system's window colour
  std::string FontFace = "Verdana";
  std::string FontSize = "8";  // points
  SkinColorValue FontColor = 0;
  std::string DescFontFace;                     // empty: as the values
  std::string DescFontSize;                     // empty: as the values
  std::optional<SkinColorValue> DescFontColor;  // nothing: as the values
};

// The colour of a text "red,green,blue". Nothing for an empty text and for "NO_SUCH_KEY"; black for
// a text that isn't three whole numbers of 16 bits. What exceeds 255 counts as 255; a negative
// number gives black.
std::optional<SkinColorValue> SkinColor(std::string_view text);

// The skin in the file at `path`, blanks round its values left out; a missing file gives the
// default look.
Skin ReadSkin(Files& files, const std::string& path);

// A number as a person writes it into a skin file: the whole text, blanks round it and a plus sign
// allowed; nothing when it isn't one or the type can't hold it.
template <typename Number>
std::optional<Number> SkinNumber(std::string_view text) {
  text = Trimmed(text, kBlankAndTab);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace quillbox

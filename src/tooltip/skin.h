// The look of the tooltip window, as its skin file gives it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/storage.h"

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

}  // namespace quillbox

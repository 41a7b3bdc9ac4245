// The one record of the tray icon; the host is always given the whole of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillbox {

// A text field of `Size` characters, one of them for its end: what doesn't fit is cut off.
template <std::size_t Size>
class FixedText {
 public:
  FixedText& operator=(std::string_view text) {
    text_ = text.substr(0, Size - 1);
    return *this;
  }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

// Which fields an operation names.
inline constexpr std::uint32_t kNifMessage = 1;
inline constexpr std::uint32_t kNifIcon = 2;
inline constexpr std::uint32_t kNifTip = 4;
inline constexpr std::uint32_t kNifInfo = 16;

enum class TrayOperation { kAdd = 0, kModify = 1, kDelete = 2 };

// Field names are those of the record that the program was designed round. Texts: code page.
struct TrayIconRecord {
  std::uint32_t cbSize = 0;
  std::uint32_t uID = 0;
  std::uint32_t uFlags = 0;
  std::uint32_t uCallbackMessage = 0;
  std::string hIcon;  // path of the picture's file; empty for the program's own icon
  FixedText<128> szTip;
  std::uint32_t dwState = 0;
  std::uint32_t dwStateMask = 0;
  FixedText<256> szInfo;
  std::uint32_t uTimeout = 0;  // of a balloon, in milliseconds
  FixedText<64> szInfoTitle;
  std::uint32_t dwInfoFlags = 0;
};

}  // namespace quillbox

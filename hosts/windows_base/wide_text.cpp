#include "windows_base/wide_text.h"

#include <windows.h>

#include <cstddef>

#include "text/code_page.h"

namespace quillbox {
namespace {

constexpr char kGap = '\x1A';

bool IsLowSurrogate(wchar_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

// All characters of the code page are single units of UTF-16.
std::wstring WideOfCodePage(std::string_view text) {
  std::wstring wide;
  wide.reserve(text.size());
  for (const char c : text) {
    wide += static_cast<wchar_t>(ToCodePoint(static_cast<unsigned char>(c)));
  }
  return wide;
}

std::optional<std::string> WholeCodePageOf(std::wstring_view wide) {
  std::string text;
  text.reserve(wide.size());
  for (const wchar_t unit : wide) {
    const auto code = FromCodePoint(unit);
    if (!code) return std::nullopt;
    text += static_cast<char>(*code);
  }
  return text;
}

std::string CodePageOf(std::wstring_view wide) {
  std::string text;
  text.reserve(wide.size());
  for (const wchar_t unit : wide) {
    const auto code = FromCodePoint(unit);
    if (code) {
      text += static_cast<char>(*code);
    } else if (!IsLowSurrogate(unit)) {  // a pair is one character
      text += kGap;
    }
  }
  return text;
}

std::wstring WideOfPath(std::string_view path) {
  const int size = static_cast<int>(path.size());
  const int length = ::MultiByteToWideChar(CP_UTF8, 0, path.data(), size, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, path.data(), size, wide.data(), length);
  return wide;
}

std::string PathOfWide(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  const int length =
      ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  std::string path(static_cast<std::size_t>(length), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, path.data(), length, nullptr, nullptr);
  return path;
}

}  // namespace quillbox

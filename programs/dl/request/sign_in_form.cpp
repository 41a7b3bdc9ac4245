#include "request/sign_in_form.h"

#include <string_view>

#include "text/code_page.h"

namespace quillbox {
namespace {

bool IsUnreserved(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' ||
         c == '.' || c == '_' || c == '~';
}

std::string PercentEncoded(std::string_view utf8) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  for (const char c : utf8) {
    if (IsUnreserved(c)) {
      encoded += c;
    } else {
      const auto code = static_cast<unsigned char>(c);
      encoded += '%';
      encoded += kDigits[code >> 4];
      encoded += kDigits[code & 0x0F];
    }
  }
  return encoded;
}

}  // namespace

std::string SignInForm(const Credentials& credentials) {
  return "Email=" + PercentEncoded(ToUtf8(credentials.Email)) +
         "&Passwd=" + PercentEncoded(ToUtf8(credentials.Password));
}

}  // namespace quillbox

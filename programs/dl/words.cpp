#include "words.h"

#include "request/web_address.h"

namespace quillbox {
namespace {

constexpr std::size_t kMostLetters = 300;

}  // namespace

std::string Plain(std::string_view text) {
  std::string plain(text.substr(0, kMostLetters));
  for (char& c : plain) c = static_cast<unsigned char>(c) < ' ' || c == '\x7F' ? ' ' : c;
  // U+0080 to U+009F, two bytes each.
  for (std::size_t i = plain.find('\xC2'); i < plain.size(); i = plain.find('\xC2', i + 1)) {
    const bool control = i + 1 < plain.size() && static_cast<unsigned char>(plain[i + 1]) < 0xA0;
    if (control) plain.replace(i, 2, "  ");
  }
  return plain;
}

std::string WordsFor(const ServiceVerdict& verdict, const std::string& address) {
  const auto parsed = ParseWebAddress(address);
  const std::string host = parsed ? parsed->Host : address;
  const std::string said =
      verdict.Words.empty() ? "" : "\n" + host + " said: " + Plain(verdict.Words);
  switch (verdict.Code) {
    case ResultCode::kSuccess:
      return "Sign-in works.";
    case ResultCode::kNoConnection:
      return verdict.Words.empty() ? "Could not connect to " + host + "." : verdict.Words;
    case ResultCode::kNoAnswer:
      return "No usable answer came from " + host + "." + said;
    case ResultCode::kRefused:
      return host + " refused the sign-in." + said;
    case ResultCode::kNotSecure:
      return "The connection to " + host + " is not secure: nothing was sent.";
  }
  return "";
}

}  // namespace quillbox

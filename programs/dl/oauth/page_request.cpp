#include "oauth/page_request.h"

#include "text/text_list.h"

namespace quillbox {
namespace {

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

std::string DecodeValue(std::string_view value) {
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const bool encoded = value[i] == '%' && i + 2 < value.size() && HexDigit(value[i + 1]) >= 0 &&
                         HexDigit(value[i + 2]) >= 0;
    if (encoded) {
      text += static_cast<char>(HexDigit(value[i + 1]) * 16 + HexDigit(value[i + 2]));
      i += 2;
    } else {
      text += value[i] == '+' ? ' ' : value[i];
    }
  }
  return text;
}

// "code=..." of "GET /?code=... HTTP/1.1".
std::optional<std::string_view> QueryOf(std::string_view head) {
  constexpr std::string_view kBeginning = "GET /?";
  const std::string_view line = head.substr(0, head.find_first_of("\r\n"));
  const std::size_t end = line.rfind(" HTTP/1.");
  if (!line.starts_with(kBeginning) || end == std::string_view::npos) return std::nullopt;
  if (end < kBeginning.size()) return std::nullopt;
  return line.substr(kBeginning.size(), end - kBeginning.size());
}

}  // namespace

std::string FieldOf(const QueryFields& fields, const std::string& name) {
  const auto field = fields.find(name);
  return field == fields.end() ? "" : field->second;
}

bool IsWholeHead(std::string_view received) {
  return received.find("\r\n\r\n") != std::string_view::npos;
}

std::optional<QueryFields> ReadPageRequest(std::string_view head) {
  const auto query = QueryOf(head);
  if (!query) return std::nullopt;
  QueryFields fields;
  for (const std::string& field : SplitText(*query, "&")) {
    const std::size_t cut = field.find('=');
    if (cut == std::string::npos) continue;
    fields[field.substr(0, cut)] = DecodeValue(std::string_view(field).substr(cut + 1));
  }
  return fields;
}

}  // namespace quillbox

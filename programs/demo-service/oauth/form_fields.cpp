#include "oauth/form_fields.h"

#include <algorithm>
#include <charconv>

namespace quillbox {
namespace {

// "+" is a blank; a "%" without two digits behind it stays.
std::string Decode(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    decoded += text[i] == '+' ? ' ' : text[i];
    if (text[i] != '%' || i + 2 >= text.size()) continue;
    unsigned char byte = 0;
    const char* const end = text.data() + i + 3;
    if (std::from_chars(end - 2, end, byte, 16).ptr != end) continue;
    decoded.back() = static_cast<char>(byte);
    i += 2;
  }
  return decoded;
}

}  // namespace

std::string FieldOf(const FormFields& fields, const std::string& name) {
  const auto found = fields.find(name);
  return found == fields.end() ? "" : found->second;
}

FormFields QueryFields(std::string_view address) {
  FormFields fields;
  address.remove_prefix(std::min(address.find('?'), address.size()));
  while (!address.empty()) {
    address.remove_prefix(1);  // the "?" or "&"
    const std::string_view field = address.substr(0, address.find('&'));
    const std::size_t sign = std::min(field.find('='), field.size());
    if (!field.empty()) {
      fields.emplace(Decode(field.substr(0, sign)),
                     Decode(field.substr(std::min(sign + 1, field.size()))));
    }
    address.remove_prefix(field.size());
  }
  return fields;
}

}  // namespace quillbox

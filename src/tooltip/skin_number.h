// A number as a person writes it into a skin file.
#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

#include "text/text_list.h"

namespace quillbox {

// The whole text as a number, blanks round it and a plus sign allowed; nothing when it isn't one or
// the type can't hold it.
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

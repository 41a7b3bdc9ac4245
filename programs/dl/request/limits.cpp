#include "request/limits.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace quillbox {
namespace {

std::optional<std::chrono::milliseconds> TakeNumber(std::string_view& in) {
  unsigned number = 0;
  const auto [end, error] = std::from_chars(in.data(), in.data() + in.size(), number);
  if (error != std::errc()) return std::nullopt;
  in.remove_prefix(static_cast<std::size_t>(end - in.data()));
  return std::chrono::milliseconds(number);
}

bool TakeComma(std::string_view& in) {
  if (!in.starts_with(',')) return false;
  in.remove_prefix(1);
  return true;
}

}  // namespace

Limits ShortenedLimits(std::string_view text) {
  const Limits whole;
  Limits shortened;
  int numbers = 0;
  for (auto* const limit :
       {&shortened.Connect, &shortened.Idle, &shortened.Total, &shortened.Person}) {
    if (numbers == 3 && text.empty()) break;
    if (numbers > 0 && !TakeComma(text)) return whole;
    const auto number = TakeNumber(text);
    if (!number) return whole;
    *limit = std::min(*limit, *number);
    ++numbers;
  }
  return text.empty() ? shortened : whole;
}

}  // namespace quillbox

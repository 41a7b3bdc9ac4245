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
  const auto connect = TakeNumber(text);
  if (!connect || !TakeComma(text)) return whole;
  const auto idle = TakeNumber(text);
  if (!idle || !TakeComma(text)) return whole;
  const auto total = TakeNumber(text);
  if (!total || !text.empty()) return whole;
  return {std::min(*connect, whole.Connect), std::min(*idle, whole.Idle),
          std::min(*total, whole.Total), whole.BodyBytes};
}

}  // namespace quillbox

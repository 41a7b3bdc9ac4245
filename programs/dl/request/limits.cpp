#include "request/limits.h"

#include <algorithm>
#include <charconv>

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

std::optional<std::chrono::milliseconds> PauseBefore(int repeat, std::chrono::milliseconds wholeRun,
                                                     std::chrono::milliseconds left,
                                                     std::chrono::seconds wanted) {
  // In seconds: what a server writes can be too much for milliseconds.
  if (repeat > kMostRepeats || wanted > std::chrono::floor<std::chrono::seconds>(left)) {
    return std::nullopt;
  }
  const std::chrono::milliseconds own = wholeRun * (repeat == 1 ? 1 : 3) / 100;
  const auto pause =
      std::max<std::chrono::milliseconds>(own, std::max(wanted, std::chrono::seconds(0)));
  return pause < left ? std::optional(pause) : std::nullopt;
}

}  // namespace quillbox

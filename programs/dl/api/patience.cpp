#include "api/patience.h"

#include <algorithm>

namespace quillbox {

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

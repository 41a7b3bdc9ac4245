// When a question that met a quota or a fault of the server is put again.
#pragma once

#include <chrono>
#include <optional>

namespace quillbox {

inline constexpr int kMostRepeats = 2;

// The pause before the repeat of that number, from 1 to kMostRepeats: a hundredth of the whole
// run's time, then three, and never less than the server wants (`wanted`, of its Retry-After).
// Nothing when there are no more repeats or the pause would use up what is left of the run.
std::optional<std::chrono::milliseconds> PauseBefore(int repeat, std::chrono::milliseconds wholeRun,
                                                     std::chrono::milliseconds left,
                                                     std::chrono::seconds wanted);

}  // namespace quillbox

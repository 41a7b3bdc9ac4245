// How long the fetch program waits, how much it takes, and when it asks again.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string_view>

namespace quillbox {

// How long the fetch program waits, and how much it takes.

struct Limits {
  std::chrono::milliseconds Connect{20'000};  // until a connection stands, its security included
  std::chrono::milliseconds Idle{60'000};     // without a byte in either direction
  std::chrono::milliseconds Total{100'000};   // for the whole run
  std::chrono::milliseconds Person{300'000};  // until a person has answered in the browser
  std::size_t BodyBytes = std::size_t{64} << 20;
};

// The limits that `text` asks for: three or four numbers of milliseconds, "connect,idle,total" or
// "connect,idle,total,person". A number can shorten a limit, never lengthen it. Any other text, the
// empty one too, changes nothing.
Limits ShortenedLimits(std::string_view text);

// When a question that met a quota or a fault of the server is put again.

inline constexpr int kMostRepeats = 2;

// The pause before the repeat of that number, from 1 to kMostRepeats: a hundredth of the whole
// run's time, then three, and never less than the server wants (`wanted`, of its Retry-After).
// Nothing when there are no more repeats or the pause would use up what is left of the run.
std::optional<std::chrono::milliseconds> PauseBefore(int repeat, std::chrono::milliseconds wholeRun,
                                                     std::chrono::milliseconds left,
                                                     std::chrono::seconds wanted);

}  // namespace quillbox

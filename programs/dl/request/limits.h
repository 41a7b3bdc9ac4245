// How long the fetch program waits, and how much it takes.
#pragma once

#include <chrono>
#include <cstddef>
#include <string_view>

namespace quillbox {

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

}  // namespace quillbox

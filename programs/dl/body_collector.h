// One exchange under way: what has arrived, unpacked, and whether it still moves.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

#include "request/limits.h"

namespace quillbox {

class BodyCollector {
 public:
  explicit BodyCollector(const Limits& limits);

  // So many bytes of the body have arrived, packed or not. False when they are beyond the limit;
  // the exchange ends then.
  bool Arrived(std::size_t bytes);

  // False when the unpacked body grows beyond its limit or the memory is out; the exchange ends
  // then.
  bool Take(std::string_view unpacked);

  // Something moved that is not part of the body.
  void NoteProgress();

  // Called now and then with the count of bytes moved in both directions so far. True when nothing
  // has moved for the idle limit.
  bool StandsStill(long long bytesMoved);

  std::string TakeBody() { return std::move(body_); }

 private:
  using Clock = std::chrono::steady_clock;

  Limits limits_;
  std::size_t arrived_ = 0;
  std::string body_;
  long long bytesMoved_ = 0;
  Clock::time_point lastProgress_ = Clock::now();
};

}  // namespace quillbox

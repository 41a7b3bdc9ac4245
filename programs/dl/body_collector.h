// One exchange under way: what has arrived, and whether it still moves.
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

  // False when the body grows beyond its limit or the memory is out; the exchange ends then.
  bool Take(std::string_view piece);

  // Something moved that is not part of the body.
  void NoteProgress();

  // Called now and then with the count of bytes moved in both directions so far. True when nothing
  // has moved for the idle limit.
  bool StandsStill(long long bytesMoved);

  std::string TakeBody() { return std::move(body_); }

 private:
  using Clock = std::chrono::steady_clock;

  Limits limits_;
  std::string body_;
  long long bytesMoved_ = 0;
  Clock::time_point lastProgress_ = Clock::now();
};

}  // namespace quillbox

#include "body_collector.h"

#include <new>

namespace quillbox {

BodyCollector::BodyCollector(const Limits& limits) : limits_(limits) {}

bool BodyCollector::Take(std::string_view piece) {
  NoteProgress();
  if (piece.size() > limits_.BodyBytes - body_.size()) return false;
  try {
    body_.append(piece);
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

void BodyCollector::NoteProgress() {
  lastProgress_ = Clock::now();
}

bool BodyCollector::StandsStill(long long bytesMoved) {
  if (bytesMoved != bytesMoved_) {
    bytesMoved_ = bytesMoved;
    NoteProgress();
  }
  return Clock::now() - lastProgress_ >= limits_.Idle;
}

}  // namespace quillbox

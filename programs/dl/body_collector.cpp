#include "body_collector.h"

#include <new>

namespace quillbox {

BodyCollector::BodyCollector(const Limits& limits) : limits_(limits) {}

bool BodyCollector::Arrived(std::size_t bytes) {
  NoteProgress();
  if (bytes > limits_.BodyBytes - arrived_) return false;
  arrived_ += bytes;
  return true;
}

bool BodyCollector::Take(std::string_view unpacked) {
  if (unpacked.size() > limits_.BodyBytes - body_.size()) return false;
  const std::size_t size = body_.size() + unpacked.size();
  try {
    // Growing from the half on would hold old and new for a moment, the new one twice the limit.
    if (size > limits_.BodyBytes / 2) body_.reserve(limits_.BodyBytes);
    body_.append(unpacked);
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

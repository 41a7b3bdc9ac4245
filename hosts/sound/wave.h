// What a WAV file holds.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string_view>

namespace quillbox {

// The low byte of a sample comes first.
enum class SampleForm { kUnsigned8, kSigned16, kSigned24, kSigned32, kFloat32 };

struct Wave {
  SampleForm Form;
  int Rate;  // frames a second
  int Channels;
  std::string_view Frames;  // a part of the file; whole frames, at least one
};

// Nothing when `file`, a whole file's content, is no uncompressed WAV file or holds no sound. One
// that was cut short gives what is there.
std::optional<Wave> ReadWave(std::string_view file);

std::size_t SampleBytes(SampleForm form);

// How long it sounds, rounded down.
std::chrono::milliseconds LengthOf(const Wave& wave);

}  // namespace quillbox

// WAV files with one steady tone, and how much of a tone is in a recording.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillbox {

struct Tone {
  int Hertz = 500;
  int Milliseconds = 400;
  int Rate = 22050;
  int Channels = 1;
  int Bits = 16;
  bool IsFloat = false;
  bool IsExtensible = false;  // the form is written where the newer kind of header has it
};

// A whole file.
std::string WaveFile(const Tone& tone);

// The amplitude of the tone in `samples` of `rate` a second.
double Loudness(const std::vector<std::int16_t>& samples, int rate, int hertz);

}  // namespace quillbox

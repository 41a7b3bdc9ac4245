#include "sound/tone.h"

#include <cmath>
#include <complex>
#include <cstring>
#include <numbers>

namespace quillbox {
namespace {

std::string Bytes(std::uint32_t number, int size) {
  std::string bytes;
  for (int i = 0; i < size; ++i, number >>= 8U) bytes += static_cast<char>(number & 0xFFU);
  return bytes;
}

std::string Chunk(const std::string& name, const std::string& content) {
  return name + Bytes(static_cast<std::uint32_t>(content.size()), 4) + content;
}

std::string Sample(const Tone& tone, double height) {
  if (tone.IsFloat) {
    const auto number = static_cast<float>(height);
    std::string bytes(4, '\0');
    std::memcpy(bytes.data(), &number, 4);
    return bytes;
  }
  if (tone.Bits == 8) return Bytes(static_cast<std::uint32_t>(128 + std::lround(height * 127)), 1);
  const double scale = std::ldexp(1.0, tone.Bits - 1) - 1;
  return Bytes(static_cast<std::uint32_t>(std::lround(height * scale)), tone.Bits / 8);
}

std::string Format(const Tone& tone) {
  const std::uint32_t coding = tone.IsFloat ? 3 : 1;
  const int frame = tone.Channels * tone.Bits / 8;
  const auto number = [](int value) { return static_cast<std::uint32_t>(value); };
  std::string format = Bytes(tone.IsExtensible ? 0xFFFE : coding, 2) +
                       Bytes(number(tone.Channels), 2) + Bytes(number(tone.Rate), 4) +
                       Bytes(number(tone.Rate * frame), 4) + Bytes(number(frame), 2) +
                       Bytes(number(tone.Bits), 2);
  if (tone.IsExtensible) {
    format += Bytes(22, 2) + Bytes(number(tone.Bits), 2) + Bytes(4, 4) + Bytes(coding, 2);
    format += std::string("\x00\x00\x00\x00\x10\x00\x80\x00\x00\xAA\x00\x38\x9B\x71", 14);
  }
  return format;
}

double Turn(int hertz, std::size_t sample, int rate) {
  return 2 * std::numbers::pi * hertz * static_cast<double>(sample) / rate;
}

}  // namespace

std::string WaveFile(const Tone& tone) {
  const auto frames = static_cast<std::size_t>(tone.Rate * tone.Milliseconds / 1000);
  std::string data;
  for (std::size_t i = 0; i < frames; ++i) {
    const std::string sample = Sample(tone, 0.5 * std::sin(Turn(tone.Hertz, i, tone.Rate)));
    for (int channel = 0; channel < tone.Channels; ++channel) data += sample;
  }
  return Chunk("RIFF", "WAVE" + Chunk("fmt ", Format(tone)) + Chunk("data", data));
}

double Loudness(const std::vector<std::int16_t>& samples, int rate, int hertz) {
  if (samples.empty()) return 0;
  std::complex<double> sum;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    sum += static_cast<double>(samples[i]) * std::polar(1.0, Turn(hertz, i, rate));
  }
  return 2 * std::abs(sum) / static_cast<double>(samples.size());
}

}  // namespace quillbox

#include "sound/wave.h"

#include <cstdint>

namespace quillbox {
namespace {

constexpr std::uint32_t kInteger = 1;
constexpr std::uint32_t kFloat = 3;
constexpr std::uint32_t kExtensible = 0xFFFE;  // says the true form further on

// The number of `size` bytes at `offset`; 0 when the bytes aren't there.
std::uint32_t Number(std::string_view bytes, std::size_t offset, std::size_t size) {
  if (bytes.size() < offset + size) return 0;
  std::uint32_t number = 0;
  for (std::size_t i = size; i > 0; --i) {
    number = number << 8U | static_cast<unsigned char>(bytes[offset + i - 1]);
  }
  return number;
}

bool IsWaveFile(std::string_view file) {
  return file.size() >= 12 && file.starts_with("RIFF") && file.substr(8, 4) == "WAVE";
}

// The content of the first chunk of that name; empty when there is none.
std::string_view Chunk(std::string_view file, std::string_view name) {
  std::uint64_t at = 12;
  while (at + 8 <= file.size()) {
    const std::uint32_t size = Number(file, at + 4, 4);
    if (file.substr(at, 4) == name) return file.substr(at + 8, size);
    at += 8 + std::uint64_t{size} + size % 2;
  }
  return {};
}

std::optional<SampleForm> FormOf(std::string_view format) {
  std::uint32_t coding = Number(format, 0, 2);
  if (coding == kExtensible) coding = Number(format, 24, 2);
  const std::uint32_t bits = Number(format, 14, 2);
  if (coding == kFloat && bits == 32) return SampleForm::kFloat32;
  if (coding != kInteger) return std::nullopt;
  switch (bits) {
    case 8:
      return SampleForm::kUnsigned8;
    case 16:
      return SampleForm::kSigned16;
    case 24:
      return SampleForm::kSigned24;
    case 32:
      return SampleForm::kSigned32;
    default:
      return std::nullopt;
  }
}

// What a sound device can be asked for.
bool IsPlayable(std::uint32_t channels, std::uint32_t rate) {
  return channels >= 1 && channels <= 8 && rate >= 1000 && rate <= 192000;
}

}  // namespace

std::size_t SampleBytes(SampleForm form) {
  switch (form) {
    case SampleForm::kUnsigned8:
      return 1;
    case SampleForm::kSigned16:
      return 2;
    case SampleForm::kSigned24:
      return 3;
    case SampleForm::kSigned32:
    case SampleForm::kFloat32:
      break;
  }
  return 4;
}

std::optional<Wave> ReadWave(std::string_view file) {
  if (!IsWaveFile(file)) return std::nullopt;
  const std::string_view format = Chunk(file, "fmt ");
  const std::optional<SampleForm> form = FormOf(format);
  const std::uint32_t channels = Number(format, 2, 2);
  const std::uint32_t rate = Number(format, 4, 4);
  if (!form || !IsPlayable(channels, rate)) return std::nullopt;

  std::string_view frames = Chunk(file, "data");
  frames.remove_suffix(frames.size() % (SampleBytes(*form) * channels));
  if (frames.empty()) return std::nullopt;
  return Wave{*form, static_cast<int>(rate), static_cast<int>(channels), frames};
}

std::chrono::milliseconds LengthOf(const Wave& wave) {
  const std::size_t frameBytes = SampleBytes(wave.Form) * static_cast<std::size_t>(wave.Channels);
  const std::size_t frames = wave.Frames.size() / frameBytes;
  return std::chrono::milliseconds(frames * 1000 / static_cast<std::size_t>(wave.Rate));
}

}  // namespace quillbox

#include "sound/wave.h"

#include <gtest/gtest.h>

#include <string>

#include "sound/tone.h"

namespace quillbox {
namespace {

// Chunks between, one of an odd size and so followed by a byte that belongs to none.
TEST(Wave, FindsTheWholeFramesThatAreThereBehindOtherChunks) {
  std::string file = WaveFile({.Channels = 2}).substr(0, 44 + 4 * 100 + 3);
  file.insert(36, std::string("LIST\x03\0\0\0abc\0junk\0\0\0\0", 20));
  const auto wave = ReadWave(file);
  ASSERT_TRUE(wave);
  EXPECT_EQ(wave->Frames.size(), 400U);
}

TEST(Wave, RefusesWhatHoldsNoSound) {
  const std::string good = WaveFile({});
  const auto with = [&](std::size_t at, const std::string& bytes) {
    return std::string(good).replace(at, bytes.size(), bytes);
  };
  const std::pair<const char*, std::string> kCases[] = {
      {"nothing", ""},
      {"a text", "This is no sound at all, however long it may be."},
      {"a picture", "\x89PNG\r\n\x1a\n" + std::string(100, 'x')},
      {"the name alone", good.substr(0, 12)},
      {"half a header", good.substr(0, 30)},
      {"no samples", good.substr(0, 44)},
      {"half a frame", good.substr(0, 45)},
      {"another kind of RIFF", with(8, "AVI ")},
      {"no format", with(12, "fmT ")},
      {"a codec", with(20, std::string("\x02\x00", 2))},
      {"no channels", with(22, std::string("\x00\x00", 2))},
      {"a thousand channels", with(22, std::string("\xE8\x03", 2))},
      {"a rate of 0", with(24, std::string(4, '\0'))},
      {"an endless rate", with(24, "\xFF\xFF\xFF\xFF")},
      {"12 bits", with(34, std::string("\x0C\x00", 2))},
      {"a chunk that fills the address space", with(16, "\xFF\xFF\xFF\xFF")},
  };
  for (const auto& [what, file] : kCases) EXPECT_FALSE(ReadWave(file)) << what;
}

}  // namespace
}  // namespace quillbox

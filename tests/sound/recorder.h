// What comes out of the sound server, as a microphone before the speaker would have it.
#pragma once

#include <QProcess>
#include <cstdint>
#include <vector>

namespace quillbox {

// Times are those of the recording: the server's device gives its silence out too.
class Recorder {
 public:
  // Of the server that stands now. Throws std::runtime_error when nothing comes.
  Recorder();
  ~Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  // Records on until the tone is there; false after ten seconds without it.
  bool Hears(int hertz);

  // Records on until half a second was silent; false when ten seconds were not enough.
  bool HearsSilence();

  // Whether the tone is anywhere in the recording.
  bool HasHeard(int hertz) const;

 private:
  static constexpr int kRate = 22050;
  static constexpr std::size_t kBlock = kRate / 20;  // 50 ms
  using Block = std::vector<std::int16_t>;

  Block Record();

  QProcess process_;
  std::vector<Block> blocks_;
};

}  // namespace quillbox

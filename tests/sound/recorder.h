// What comes out of the sound server, as a microphone before the speaker would have it.
#pragma once

#include <QProcess>
#include <algorithm>
#include <stdexcept>

#include "sound/tone.h"

namespace quillbox {

// Times are those of the recording: the server's device gives its silence out too.
class Recorder {
 public:
  // Of the server that stands now. Throws std::runtime_error when nothing comes.
  Recorder() {
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.start("parec", {"--device=nothing.monitor", "--format=s16le", "--channels=1",
                             "--rate=" + QString::number(kRate), "--latency-msec=20"});
    Record();
  }
  ~Recorder() {
    process_.kill();
    process_.waitForFinished();
  }
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  // Records on until the tone is there; false after ten seconds without it.
  bool Hears(int hertz) {
    for (int i = 0; i < kMostBlocks; ++i) {
      if (Loudness(Record(), kRate, hertz) > kAudible) return true;
    }
    return false;
  }

  // Records on until half a second was silent; false when ten seconds were not enough.
  bool HearsSilence() {
    int silent = 0;
    for (int i = 0; i < kMostBlocks && silent < 10; ++i) {
      silent = std::ranges::any_of(Record(), [](int x) { return x > kAudible; }) ? 0 : silent + 1;
    }
    return silent == 10;
  }

  // Whether the tone is anywhere in the recording.
  bool HasHeard(int hertz) const {
    return std::ranges::any_of(
        blocks_, [hertz](const Block& block) { return Loudness(block, kRate, hertz) > kAudible; });
  }

 private:
  static constexpr int kRate = 22050;
  static constexpr std::size_t kBlock = kRate / 20;  // 50 ms
  static constexpr int kMostBlocks = 200;
  static constexpr double kAudible = 1000;  // of 32767; the tones have half of all
  using Block = std::vector<std::int16_t>;

  Block Record() {
    Block block(kBlock);
    constexpr auto kBytes = static_cast<qint64>(kBlock * sizeof(std::int16_t));
    while (process_.bytesAvailable() < kBytes) {
      if (!process_.waitForReadyRead(30000)) throw std::runtime_error("nothing from the recorder");
    }
    process_.read(reinterpret_cast<char*>(block.data()), kBytes);
    blocks_.push_back(block);
    return block;
  }

  QProcess process_;
  std::vector<Block> blocks_;
};

}  // namespace quillbox

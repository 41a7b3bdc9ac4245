#include "sound/recorder.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "sound/tone.h"

namespace quillbox {
namespace {

constexpr int kMostBlocks = 200;   // ten seconds
constexpr double kAudible = 1000;  // of 32767; the tones have half of all

}  // namespace

Recorder::Recorder() {
  process_.setStandardErrorFile(QProcess::nullDevice());
  process_.start("parec", {"--device=nothing.monitor", "--format=s16le", "--channels=1",
                           "--rate=" + QString::number(kRate), "--latency-msec=20"});
  Record();
}

Recorder::~Recorder() {
  process_.kill();
  process_.waitForFinished();
}

Recorder::Block Recorder::Record() {
  Block block(kBlock);
  constexpr auto kBytes = static_cast<qint64>(kBlock * sizeof(std::int16_t));
  while (process_.bytesAvailable() < kBytes) {
    if (!process_.waitForReadyRead(30000)) throw std::runtime_error("nothing from the recorder");
  }
  process_.read(reinterpret_cast<char*>(block.data()), kBytes);
  blocks_.push_back(block);
  return block;
}

bool Recorder::Hears(int hertz) {
  for (int i = 0; i < kMostBlocks; ++i) {
    if (Loudness(Record(), kRate, hertz) > kAudible) return true;
  }
  return false;
}

bool Recorder::HearsSilence() {
  int silent = 0;
  for (int i = 0; i < kMostBlocks && silent < 10; ++i) {
    const Block block = Record();
    const bool isLoud = std::any_of(block.begin(), block.end(), [](int x) { return x > kAudible; });
    silent = isLoud ? 0 : silent + 1;
  }
  return silent == 10;
}

bool Recorder::HasHeard(int hertz) const {
  return std::any_of(blocks_.begin(), blocks_.end(), [hertz](const Block& block) {
    return Loudness(block, kRate, hertz) > kAudible;
  });
}

}  // namespace quillbox

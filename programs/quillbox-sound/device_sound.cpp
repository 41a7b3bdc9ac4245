#include "device_sound.h"

namespace quillbox {
namespace {

QAudioFormat::SampleFormat FormatOf(SampleForm form) {
  switch (form) {
    case SampleForm::kUnsigned8:
      return QAudioFormat::UInt8;
    case SampleForm::kSigned16:
      return QAudioFormat::Int16;
    case SampleForm::kSigned24:
    case SampleForm::kSigned32:
      return QAudioFormat::Int32;
    case SampleForm::kFloat32:
      break;
  }
  return QAudioFormat::Float;
}

// The same samples with a low byte of zero.
QByteArray Widened(std::string_view frames) {
  QByteArray wide;
  wide.reserve(static_cast<qsizetype>(frames.size()) / 3 * 4);
  for (std::size_t i = 0; i + 3 <= frames.size(); i += 3) {
    wide.append('\0').append(frames.data() + i, 3);
  }
  return wide;
}

QByteArray Silence(const QAudioFormat& format) {
  constexpr qint64 kMicroseconds = 300'000;
  const bool isUnsigned = format.sampleFormat() == QAudioFormat::UInt8;
  return QByteArray(format.bytesForDuration(kMicroseconds), isUnsigned ? '\x80' : '\0');
}

}  // namespace

DeviceSound ForDevice(const Wave& wave) {
  DeviceSound sound;
  sound.Format.setSampleFormat(FormatOf(wave.Form));
  sound.Format.setSampleRate(wave.Rate);
  sound.Format.setChannelCount(wave.Channels);
  sound.Frames = wave.Form == SampleForm::kSigned24
                     ? Widened(wave.Frames)
                     : QByteArray(wave.Frames.data(), static_cast<qsizetype>(wave.Frames.size()));
  sound.Frames += Silence(sound.Format);
  return sound;
}

}  // namespace quillbox

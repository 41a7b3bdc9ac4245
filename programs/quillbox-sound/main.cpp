// Plays one WAV file to its end: quillbox-sound FILE. Its status is 0 after the sound, 1 when there
// was none.
#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QBuffer>
#include <QByteArray>
#include <QCoreApplication>
#include <QMediaDevices>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

#include "sound/wave.h"
#include "system/process_start.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

constexpr int kSilent = 1;

constexpr const char* kHelp =
    "usage: quillbox-sound FILE\n"
    "Plays a WAV file to its end. The exit status is 0 after the sound, 1 when there was none.\n"
    "  --help, -h   print this text\n"
    "  --version    print the version";

// A sound in the form in which a device takes it.
struct DeviceSound {
  QAudioFormat Format;
  QByteArray Frames;
};

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

// Samples of 24 bits become 32 bits. A short silence follows the sound: what a device has not
// played when it is told that there is no more can be lost.
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

// A call into a sound service that hangs never comes back, so this can't wait for the event loop.
void EndWithin(std::chrono::milliseconds time) {
  std::thread([time] {
    std::this_thread::sleep_for(time);
    std::_Exit(kSilent);
  }).detach();
}

int Play(const DeviceSound& sound) {
  const QAudioDevice device = QMediaDevices::defaultAudioOutput();
  if (device.isNull()) return kSilent;
  QBuffer frames;
  frames.setData(sound.Frames);
  frames.open(QIODevice::ReadOnly);
  QAudioSink sink(device, sound.Format);
  QObject::connect(&sink, &QAudioSink::stateChanged, [](QAudio::State state) {
    if (state == QAudio::IdleState) QCoreApplication::exit(0);  // all of it was played
    if (state == QAudio::StoppedState) QCoreApplication::exit(kSilent);
  });
  sink.start(&frames);
  if (sink.state() == QAudio::StoppedState) return kSilent;
  return QCoreApplication::exec();
}

int Run(int argc, char* argv[]) {
  if (AnswersQuestion(argc, argv, {"quillbox-sound", QUILLBOX_VERSION, kHelp})) return 0;
  if (argc != 2) {
    std::fputs("quillbox-sound: say which file to play (--help tells more)\n", stderr);
    return 2;
  }
  const std::optional<std::string> content = SystemFiles().Read(argv[1]);
  if (!content) return kSilent;
  const std::optional<Wave> wave = ReadWave(*content);
  if (!wave) return kSilent;

  EndWithin(LengthOf(*wave) + 5s);
  const QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName("Quillbox");
  return Play(ForDevice(*wave));
}

}  // namespace
}  // namespace quillbox

int main(int argc, char* argv[]) {
  return quillbox::Run(argc, argv);
}

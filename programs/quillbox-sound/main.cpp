// Plays one WAV file to its end: quillbox-sound FILE. Its status is 0 after the sound, 1 when there
// was none.
#include <QAudioDevice>
#include <QAudioSink>
#include <QBuffer>
#include <QCoreApplication>
#include <QMediaDevices>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <thread>

#include "device_sound.h"
#include "sound/wave.h"
#include "system/process_start.h"
#include "system/system_files.h"

namespace {

using namespace std::chrono_literals;

constexpr int kSilent = 1;

constexpr const char* kHelp =
    "usage: quillbox-sound FILE\n"
    "Plays a WAV file to its end. The exit status is 0 after the sound, 1 when there was none.\n"
    "  --help, -h   print this text\n"
    "  --version    print the version";

// A call into a sound service that hangs never comes back, so this can't wait for the event loop.
void EndWithin(std::chrono::milliseconds time) {
  std::thread([time] {
    std::this_thread::sleep_for(time);
    std::_Exit(kSilent);
  }).detach();
}

int Play(const quillbox::DeviceSound& sound) {
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

}  // namespace

int main(int argc, char* argv[]) {
  if (quillbox::AnswersQuestion(argc, argv, {"quillbox-sound", QUILLBOX_VERSION, kHelp})) return 0;
  if (argc != 2) {
    std::fputs("quillbox-sound: say which file to play (--help tells more)\n", stderr);
    return 2;
  }
  const std::optional<std::string> content = quillbox::SystemFiles().Read(argv[1]);
  if (!content) return kSilent;
  const std::optional<quillbox::Wave> wave = quillbox::ReadWave(*content);
  if (!wave) return kSilent;

  EndWithin(quillbox::LengthOf(*wave) + 5s);
  const QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName("Quillbox");
  return Play(quillbox::ForDevice(*wave));
}

// What is heard of PlaySoundFile, with the real player and a real sound server.
#include "sound/sound_player.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>
#include <QTemporaryDir>
#include <optional>
#include <string>

#include "sound/player_processes.h"
#include "sound/recorder.h"
#include "sound/sound_server.h"
#include "sound/tone.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

constexpr int kLow = 500, kHigh = 1700;  // hertz

class SoundPlayerTest : public testing::Test {
 protected:
  SoundPlayerTest() {
    Write("low.wav", WaveFile({.Hertz = kLow, .Milliseconds = 1500}));
    Write("high.wav", WaveFile({.Hertz = kHigh}));
  }

  std::string Path(const std::string& name) const {
    return data_.path().toStdString() + "/" + name;
  }

  void Write(const std::string& name, const std::string& content) const {
    QFile file(QString::fromStdString(Path(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content.data(), static_cast<qint64>(content.size()));
  }

  const QTemporaryDir data_;
  SystemFiles files_;
  SoundPlayer player_{ApplicationFolder(QUILLBOX_SOUND_FOLDER, data_.path().toStdString(), '/'),
                      files_};
};

TEST_F(SoundPlayerTest, PlaysASound) {
  const SoundServer server;
  Recorder recorder;
  player_.PlaySoundFile("High.WAV");
  EXPECT_TRUE(recorder.Hears(kHigh));
  EXPECT_TRUE(recorder.HearsSilence());
  EXPECT_FALSE(recorder.HasHeard(kLow));
  EXPECT_TRUE(PlayersEnd());
}

TEST_F(SoundPlayerTest, PlaysEveryFormOfSample) {
  const SoundServer server;
  Recorder recorder;
  int hertz = 600;
  for (const Tone& form : {Tone{.Bits = 8}, Tone{.Channels = 2, .Bits = 24},
                           Tone{.Rate = 44100, .Bits = 32}, Tone{.Bits = 32, .IsFloat = true}}) {
    Tone tone = form;
    tone.Hertz = hertz += 200;
    Write("form.wav", WaveFile(tone));
    player_.PlaySoundFile("form.wav");
    EXPECT_TRUE(recorder.Hears(hertz)) << form.Bits << " bits, float " << form.IsFloat;
    EXPECT_TRUE(PlayersEnd());
  }
}

TEST_F(SoundPlayerTest, PlaysTheSoundsOfTheProgram) {
  const SoundServer server;
  Recorder recorder;
  player_.PlaySoundFile("Impressions.wav");
  EXPECT_TRUE(recorder.Hears(1047));  // its note is a C
  EXPECT_TRUE(PlayersEnd());
}

TEST_F(SoundPlayerTest, ASecondSoundDoesNotStartOverTheFirst) {
  const SoundServer server;
  Recorder recorder;
  player_.PlaySoundFile("low.wav");
  player_.PlaySoundFile("high.wav");  // before the first one is heard
  EXPECT_TRUE(recorder.Hears(kLow));
  player_.PlaySoundFile("high.wav");  // while it is
  EXPECT_EQ(PlayerProcesses(), 1);
  EXPECT_TRUE(recorder.HearsSilence());
  EXPECT_FALSE(recorder.HasHeard(kHigh));

  EXPECT_TRUE(PlayersEnd());
  player_.PlaySoundFile("high.wav");
  EXPECT_TRUE(recorder.Hears(kHigh));
}

TEST_F(SoundPlayerTest, ABadFileIsSilentAndNotInTheWay) {
  const SoundServer server;
  Recorder recorder;
  Write("text.wav", "This is no sound.");
  Write("empty.wav", "");
  Write("header.wav", WaveFile({.Hertz = kHigh}).substr(0, 44));
  ::mkfifo(Path("pipe.wav").c_str(), S_IRUSR | S_IWUSR);
  for (const char* file : {"text.wav", "empty.wav", "header.wav", "pipe.wav", "absent.wav",
                           "(None)", "", "/dev/zero", "..", "/"}) {
    player_.PlaySoundFile(file);
    EXPECT_EQ(PlayerProcesses(), 0) << file;
  }
  player_.PlaySoundFile("low.wav");
  EXPECT_TRUE(recorder.Hears(kLow));
}

TEST_F(SoundPlayerTest, IsSilentWithoutASoundServer) {
  qputenv("PULSE_SERVER", "unix:/nonexistent");
  player_.PlaySoundFile("low.wav");
  EXPECT_TRUE(PlayersEnd());

  const SoundServer server;
  Recorder recorder;
  player_.PlaySoundFile("high.wav");
  EXPECT_TRUE(recorder.Hears(kHigh));
}

TEST_F(SoundPlayerTest, IsSilentWithoutThePlayer) {
  SoundPlayer alone(ApplicationFolder("/nonexistent", data_.path().toStdString(), '/'), files_);
  alone.PlaySoundFile("low.wav");
  EXPECT_TRUE(PlayersEnd());
}

// That the call returns while the server is frozen is the test: nobody else would thaw it.
TEST_F(SoundPlayerTest, DoesNotWaitForAServerThatHangs) {
  SoundServer server;
  Recorder recorder;
  server.Freeze();
  player_.PlaySoundFile("high.wav");
  player_.PlaySoundFile("low.wav");
  EXPECT_EQ(PlayerProcesses(), 1);
  server.Thaw();
  EXPECT_TRUE(recorder.Hears(kHigh));
  EXPECT_TRUE(PlayersEnd());

  server.Freeze();
  player_.PlaySoundFile("high.wav");
  EXPECT_TRUE(PlayersEnd());  // with a server that never answers
  server.Thaw();
}

TEST_F(SoundPlayerTest, GoesOnWithAServerThatCameAnew) {
  SoundServer server;
  std::optional<Recorder> recorder(std::in_place);
  player_.PlaySoundFile("low.wav");
  EXPECT_TRUE(recorder->Hears(kLow));
  server.Kill();
  EXPECT_TRUE(PlayersEnd());

  server.StartAgain();
  recorder.emplace();
  player_.PlaySoundFile("high.wav");
  EXPECT_TRUE(recorder->Hears(kHigh));
}

TEST_F(SoundPlayerTest, EndsItsPlayerWithItself) {
  const SoundServer server;
  {
    SoundPlayer passing(ApplicationFolder(QUILLBOX_SOUND_FOLDER, data_.path().toStdString(), '/'),
                        files_);
    passing.PlaySoundFile("low.wav");
    EXPECT_EQ(PlayerProcesses(), 1);
  }
  EXPECT_EQ(PlayerProcesses(), 0);
}

TEST_F(SoundPlayerTest, LoadsNoSoundLibraryHere) {
  const SoundServer server;
  Recorder recorder;
  player_.PlaySoundFile("high.wav");
  EXPECT_TRUE(recorder.Hears(kHigh));
  EXPECT_FALSE(HasLoaded("Multimedia"));
  EXPECT_FALSE(HasLoaded("libpulse"));
  EXPECT_TRUE(HasLoaded("libQt6Core"));
}

}  // namespace
}  // namespace quillbox

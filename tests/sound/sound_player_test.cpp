// What is heard of PlaySoundFile, with the real player and a real sound server.
#include "sound/sound_player.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <optional>

#include "sound/player_processes.h"
#include "sound/recorder.h"
#include "sound/sound_server.h"
#include "sound/tone.h"
#include "system/system_files.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

constexpr int kLow = 500, kHigh = 1700;  // hertz

class SoundPlayerTest : public testing::Test {
 protected:
  SoundPlayerTest() {
    data_.Put("low.wav", WaveFile({.Hertz = kLow, .Milliseconds = 1500}));
    data_.Put("high.wav", WaveFile({.Hertz = kHigh}));
  }

  SoundPlayer PlayerOf(const std::string& folder) {
    return {ApplicationFolder(folder, data_.Path(), '/'), files_};
  }

  const TemporaryFolder data_;
  SystemFiles files_;
  SoundServer server_;
  std::optional<Recorder> recorder_{std::in_place};
  SoundPlayer player_ = PlayerOf(QUILLBOX_SOUND_FOLDER);
};

TEST_F(SoundPlayerTest, PlaysASoundWithoutALibraryHere) {
  player_.PlaySoundFile("High.WAV");
  EXPECT_TRUE(recorder_->Hears(kHigh));
  EXPECT_TRUE(recorder_->HearsSilence());
  EXPECT_FALSE(recorder_->HasHeard(kLow));
  EXPECT_TRUE(PlayersEnd());
  EXPECT_FALSE(HasLoaded("Multimedia"));
  EXPECT_FALSE(HasLoaded("libpulse"));
  EXPECT_TRUE(HasLoaded("libQt6Core"));
}

TEST_F(SoundPlayerTest, PlaysEveryFormOfSampleAndTheSoundsOfTheProgram) {
  int hertz = 600;
  for (Tone tone :
       {Tone{.Bits = 8}, Tone{.Channels = 2, .Bits = 24}, Tone{.Rate = 44100, .Bits = 32},
        Tone{.Bits = 32, .IsFloat = true}, Tone{.Channels = 2, .IsExtensible = true},
        Tone{.Bits = 32, .IsFloat = true, .IsExtensible = true}}) {
    tone.Hertz = hertz += 200;
    data_.Put("form.wav", WaveFile(tone));
    player_.PlaySoundFile("form.wav");
    EXPECT_TRUE(recorder_->Hears(hertz))
        << tone.Bits << " bits, float " << tone.IsFloat << ", extensible " << tone.IsExtensible;
    EXPECT_TRUE(PlayersEnd());
  }
  player_.PlaySoundFile("Impressions.wav");
  EXPECT_TRUE(recorder_->Hears(1047));  // its note is a C
}

TEST_F(SoundPlayerTest, ASecondSoundDoesNotStartOverTheFirst) {
  player_.PlaySoundFile("low.wav");
  player_.PlaySoundFile("high.wav");  // before the first one is heard
  EXPECT_TRUE(recorder_->Hears(kLow));
  player_.PlaySoundFile("high.wav");  // while it is
  EXPECT_EQ(PlayerProcesses(), 1);
  EXPECT_TRUE(recorder_->HearsSilence());
  EXPECT_FALSE(recorder_->HasHeard(kHigh));

  EXPECT_TRUE(PlayersEnd());
  player_.PlaySoundFile("high.wav");
  EXPECT_TRUE(recorder_->Hears(kHigh));
}

TEST_F(SoundPlayerTest, ABadFileIsSilentAndNotInTheWay) {
  data_.Put("text.wav", "This is no sound.");
  data_.Put("empty.wav", "");
  data_.Put("header.wav", WaveFile({.Hertz = kHigh}).substr(0, 44));
  ::mkfifo(data_.File("pipe.wav").c_str(), S_IRUSR | S_IWUSR);
  for (const char* file : {"text.wav", "empty.wav", "header.wav", "pipe.wav", "absent.wav",
                           "(None)", "", "/dev/zero", "..", "/"}) {
    player_.PlaySoundFile(file);
    EXPECT_EQ(PlayerProcesses(), 0) << file;
  }
  player_.PlaySoundFile("low.wav");
  EXPECT_TRUE(recorder_->Hears(kLow));
}

TEST_F(SoundPlayerTest, IsSilentWithoutThePlayer) {
  PlayerOf("/nonexistent").PlaySoundFile("low.wav");
  EXPECT_TRUE(PlayersEnd());
}

// That the call returns while the server is frozen is the test: nobody else would thaw it.
TEST_F(SoundPlayerTest, DoesNotWaitForAServerThatHangs) {
  server_.Freeze();
  player_.PlaySoundFile("high.wav");
  player_.PlaySoundFile("low.wav");
  EXPECT_EQ(PlayerProcesses(), 1);
  server_.Thaw();
  EXPECT_TRUE(recorder_->Hears(kHigh));
  EXPECT_TRUE(PlayersEnd());

  server_.Freeze();
  player_.PlaySoundFile("high.wav");
  EXPECT_TRUE(PlayersEnd());  // with a server that never answers
  server_.Thaw();
}

TEST_F(SoundPlayerTest, IsSilentWithoutASoundServerAndGoesOnWithANewOne) {
  player_.PlaySoundFile("low.wav");
  EXPECT_TRUE(recorder_->Hears(kLow));
  server_.Kill();
  EXPECT_TRUE(PlayersEnd());
  player_.PlaySoundFile("low.wav");
  EXPECT_TRUE(PlayersEnd());

  server_.StartAgain();
  recorder_.emplace();
  player_.PlaySoundFile("high.wav");
  EXPECT_TRUE(recorder_->Hears(kHigh));
}

TEST_F(SoundPlayerTest, EndsItsPlayerWithItself) {
  {
    SoundPlayer passing = PlayerOf(QUILLBOX_SOUND_FOLDER);
    passing.PlaySoundFile("low.wav");
    EXPECT_EQ(PlayerProcesses(), 1);
  }
  EXPECT_EQ(PlayerProcesses(), 0);
}

}  // namespace
}  // namespace quillbox

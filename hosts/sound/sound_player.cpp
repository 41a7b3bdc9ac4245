#include "sound/sound_player.h"

#include <chrono>
#include <optional>

#include "config/application_folder.h"
#include "sound/wave.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

// How long the sound at `path` is; nothing when it can't be played.
std::optional<std::chrono::milliseconds> LengthAt(Files& files, const std::string& path) {
  const std::optional<std::string> content = files.Read(path);
  if (!content) return std::nullopt;
  const std::optional<Wave> wave = ReadWave(*content);
  if (!wave) return std::nullopt;
  return LengthOf(*wave);
}

}  // namespace

SoundPlayer::SoundPlayer(const ApplicationFolder& folder, Files& files)
    : folder_(folder), files_(files), players_(folder.ProgramFile("quillbox-sound")) {
  end_.setSingleShot(true);
  QObject::connect(&end_, &QTimer::timeout, &end_, [this] { LetGo(); });
}

// A bad file is found out here, so that it doesn't stand in the way of the next sound.
void SoundPlayer::PlaySoundFile(const std::string& file) {
  if (players_.Running(player_)) return;
  const std::optional<std::string> path = FindSoundFile(files_, folder_, file);
  if (!path) return;
  const std::optional<std::chrono::milliseconds> length = LengthAt(files_, *path);
  if (!length) return;
  player_ = players_.Start({*path, {}});
  end_.start(*length + 1s);
}

// A process that has ended stays in the system's list until someone asks for it.
void SoundPlayer::LetGo() {
  if (players_.Running(player_)) end_.start(1s);
}

}  // namespace quillbox

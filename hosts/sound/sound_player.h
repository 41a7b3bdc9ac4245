// Sounds, each played by a process of its own.
#pragma once

#include <QTimer>
#include <string>

#include "config/application_folder.h"
#include "platform/storage.h"
#include "platform/surroundings.h"
#include "system/agent_processes.h"

namespace quillbox {

// Plays with the program "quillbox-sound" from the program's folder. This process neither loads a
// sound library nor speaks to a sound service: one that hangs, crashes or comes anew takes the one
// sound with it. A player ends by itself some seconds after its sound should have, and with this
// process at the latest.
class SoundPlayer : public Sounds {
 public:
  // `files` must outlive it. Needs an event loop to let go of a player that has ended.
  SoundPlayer(const ApplicationFolder& folder, Files& files);

  void PlaySoundFile(const std::string& file) override;

 private:
  void LetGo();

  const ApplicationFolder folder_;
  Files& files_;
  AgentProcesses players_;
  AgentId player_ = 0;
  QTimer end_;  // runs while a player is known
};

}  // namespace quillbox

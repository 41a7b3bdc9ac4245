// Sounds that nobody hears: this version has no sound module yet.
#pragma once

#include "platform/sounds.h"

namespace quillbox {

// Playing stays silent whatever the file. The module that plays is to be loaded at the first sound,
// so that a person who turned all sounds off doesn't pay for it.
class SilentSounds : public Sounds {
 public:
  void PlaySoundFile(const std::string&) override {}
};

}  // namespace quillbox

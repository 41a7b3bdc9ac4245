// Playing sound files.
#pragma once

#include <string>

namespace quillbox {

class Sounds {
 public:
  virtual ~Sounds() = default;

  // Returns at once. A file that can't be played stays silent, and so does any file while another
  // one is still playing. A name without a folder is a file of the application folder.
  virtual void PlaySoundFile(const std::string& file) = 0;
};

}  // namespace quillbox

// What lies around the program: the person's other programs, the speaker, the network.
#pragma once

#include <string>

namespace quillbox {

// Handing addresses and files to whatever the person opens them with.
class AddressOpener {
 public:
  virtual ~AddressOpener() = default;

  // Opens an address (https, http or mailto; code page), or a file by its full path, in the
  // person's own program for it. Returns at once; a failure shows nothing. The target is never
  // logged, but other users may be able to read it: it must hold no secret.
  virtual void Open(const std::string& target) = 0;

  // Opens an https address (visible ASCII) that holds a secret, so that no other user of the
  // machine can read it. Where that isn't possible nothing is opened. Otherwise as Open.
  virtual void OpenPrivately(const std::string& address) = 0;
};

// Playing sound files.
class Sounds {
 public:
  virtual ~Sounds() = default;

  // Returns at once. A file that can't be played stays silent, and so does any file while another
  // one is still playing. A name without a folder is a file of the application folder.
  virtual void PlaySoundFile(const std::string& file) = 0;
};

class NetworkState {
 public:
  virtual ~NetworkState() = default;

  // True when the machine has a connection, or when the host can't tell. Never waits.
  virtual bool IsOnline() = 0;
};

}  // namespace quillbox

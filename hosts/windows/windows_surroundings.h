// What lies around the program: where it keeps its files, how the person's region writes, their
// other programs, the speaker.
#pragma once

#include <utility>

#include "config/application_folder.h"
#include "platform/storage.h"
#include "platform/surroundings.h"
#include "region/regional_settings.h"

namespace quillbox {

// The executable's folder for everything when this user can write there; else what the program
// writes goes to "Quillbox" in the person's own folder for local data, which is made for them
// alone.
ApplicationFolder FindApplicationFolder();

// As Windows knows the region of this name ("de-DE"); null for the person's own. What the code page
// lacks is replaced: a narrow blank by the no-break blank, foreign marks by plain ones, a currency
// symbol by its three-letter code, names of days and months by the English ones.
RegionalSettings RegionOf(const wchar_t* name = nullptr);

// By the system's own player, whose library is loaded with the first sound.
class WindowsSounds : public Sounds {
 public:
  // `files` must outlive it.
  WindowsSounds(ApplicationFolder folder, Files& files)
      : folder_(std::move(folder)), files_(files) {}

  void PlaySoundFile(const std::string& file) override;

 private:
  const ApplicationFolder folder_;
  Files& files_;
};

// Hands https, http and mailto addresses and files of the application's folders, and nothing else,
// to the person's own program for them.
class WindowsAddressOpener : public AddressOpener {
 public:
  explicit WindowsAddressOpener(ApplicationFolder folder) : folder_(std::move(folder)) {}

  void Open(const std::string& target) override;

  // The browser's argument can be read by other programs of this person, as all that the browser
  // holds can; other users of the machine can't read it.
  void OpenPrivately(const std::string& address) override;

 private:
  bool IsOwnFile(const std::string& path) const;

  const ApplicationFolder folder_;
};

}  // namespace quillbox

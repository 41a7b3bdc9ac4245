// Where the program's files lie, and finding those that a person may have replaced. Nothing else
// builds paths.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/storage.h"

namespace quillbox {

// Folders are full paths in the host's own bytes, without a separator at their end. The first two
// are the same folder when the program's own can be written; else what the program writes, its
// settings file too, goes to the data folder. The shared folder is the program's own unless
// another is named.
class ApplicationFolder {
 public:
  ApplicationFolder(std::string programFolder, std::string dataFolder, char separator,
                    std::string sharedFolder = {})
      : programFolder_(std::move(programFolder)),
        dataFolder_(std::move(dataFolder)),
        sharedFolder_(sharedFolder.empty() ? programFolder_ : std::move(sharedFolder)),
        separator_(separator) {}

  // A program that came with this one.
  std::string ProgramFile(std::string_view name) const { return Path(programFolder_, name); }

  // Any other file that came with the program: manual, skin, sounds, what a report's page loads.
  std::string SharedFile(std::string_view name) const { return Path(sharedFolder_, name); }

  // A file that the program or the agent writes.
  std::string DataFile(std::string_view name) const { return Path(dataFolder_, name); }

  const std::string& SharedFolder() const { return sharedFolder_; }
  const std::string& DataFolder() const { return dataFolder_; }
  char Separator() const { return separator_; }

 private:
  std::string Path(const std::string& folder, std::string_view name) const {
    return folder + separator_ + std::string(name);
  }

  std::string programFolder_;
  std::string dataFolder_;
  std::string sharedFolder_;
  char separator_;
};

// The full path of the file of that name, in any case: the person's own in the data folder, else
// the one that came with the program. When neither is there, the path that it would have in the
// data folder.
std::string FindProgramFile(Files& files, const ApplicationFolder& folder, std::string_view name);

// The full path of the file that a sound's stored text means. `sound` is "(None)", a file name
// without a folder, or a full path; the characters of a file are its own bytes or the code page's.
// A name is one of the application folder, in any case. Nothing when there is no such file, and for
// a path that depends on the current folder.
std::optional<std::string> FindSoundFile(Files& files, const ApplicationFolder& folder,
                                         const std::string& sound);

// Removes what a run that died has left in the data folder: the fetch program's data and log files,
// finished or not. Only for a program that is the one instance and has no agent running: anybody
// else's fresh files would go too.
void ClearWorkingFiles(Files& files, const ApplicationFolder& folder);

}  // namespace quillbox

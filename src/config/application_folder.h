// Where the program's files lie. Nothing else builds paths.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace quillbox {

// Folders are full paths in the host's own bytes, without a separator at their end. They are the
// same folder when the program's own can be written; else what the program writes, its settings
// file too, goes to the data folder.
class ApplicationFolder {
 public:
  ApplicationFolder(std::string programFolder, std::string dataFolder, char separator)
      : programFolder_(std::move(programFolder)),
        dataFolder_(std::move(dataFolder)),
        separator_(separator) {}

  // A file that came with the program.
  std::string ProgramFile(std::string_view name) const { return Path(programFolder_, name); }

  // A file that the program or the agent writes.
  std::string DataFile(std::string_view name) const { return Path(dataFolder_, name); }

  const std::string& ProgramFolder() const { return programFolder_; }
  const std::string& DataFolder() const { return dataFolder_; }
  char Separator() const { return separator_; }

 private:
  std::string Path(const std::string& folder, std::string_view name) const {
    return folder + separator_ + std::string(name);
  }

  std::string programFolder_;
  std::string dataFolder_;
  char separator_;
};

}  // namespace quillbox

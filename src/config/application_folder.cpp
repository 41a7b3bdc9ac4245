#include "config/application_folder.h"

#include <filesystem>
#include <vector>

#include "config/setting_keys.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

std::optional<std::string> FindPath(Files& files, const std::string& path) {
  if (!std::filesystem::path(path).is_absolute()) return std::nullopt;
  for (const std::string& spelling : {path, ToUtf8(path)}) {
    if (files.Exists(spelling)) return spelling;
  }
  return std::nullopt;
}

std::optional<std::string> FindName(Files& files, const ApplicationFolder& folder,
                                    const std::string& name) {
  if (name.find_first_of("*?") != std::string::npos) return std::nullopt;  // no pattern is meant
  std::string path = FindProgramFile(files, folder, name);
  if (!files.Exists(path)) return std::nullopt;
  return path;
}

}  // namespace

std::string FindProgramFile(Files& files, const ApplicationFolder& folder, std::string_view name) {
  const std::string wanted(name);
  if (std::string path = folder.DataFile(name); files.Exists(path)) return path;
  for (const std::string& place : {folder.DataFolder(), folder.SharedFolder()}) {
    const std::vector<std::string> found = files.List(place, wanted);
    if (!found.empty()) return place + folder.Separator() + found.front();
  }
  return folder.DataFile(name);
}

std::optional<std::string> FindSoundFile(Files& files, const ApplicationFolder& folder,
                                         const std::string& sound) {
  if (sound.empty() || sound == kNoSound) return std::nullopt;
  const bool isPath = sound.find(folder.Separator()) != std::string::npos;
  return isPath ? FindPath(files, sound) : FindName(files, folder, sound);
}

namespace {

constexpr const char* kNames[] = {"Content.dat",  "Content.log",  "Search.dat", "Search.log",
                                  "Referral.dat", "Referral.log", "Report.dat", "Report.log",
                                  "che.wt",       "chet.wt"};

}  // namespace

void ClearWorkingFiles(Files& files, const ApplicationFolder& folder) {
  for (const std::string name : kNames) {
    files.Remove(folder.DataFile(name));
    // The fetch program writes under a name with an ending of its own and renames.
    for (const std::string& unfinished : files.List(folder.DataFolder(), name + ".*.part")) {
      files.Remove(folder.DataFile(unfinished));
    }
  }
}

}  // namespace quillbox

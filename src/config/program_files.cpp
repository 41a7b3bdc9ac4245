#include "config/program_files.h"

#include <vector>

namespace quillbox {

std::string FindProgramFile(Files& files, const ApplicationFolder& folder, std::string_view name) {
  const std::string wanted(name);
  if (std::string path = folder.DataFile(name); files.Exists(path)) return path;
  for (const std::string& place : {folder.DataFolder(), folder.ProgramFolder()}) {
    const std::vector<std::string> found = files.List(place, wanted);
    if (!found.empty()) return place + folder.Separator() + found.front();
  }
  return folder.DataFile(name);
}

}  // namespace quillbox

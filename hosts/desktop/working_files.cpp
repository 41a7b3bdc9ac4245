#include "desktop/working_files.h"

#include <string>

namespace quillbox {
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

#include "reports/page_files.h"

#include <optional>
#include <string>

#include "config/atomic_write.h"

namespace quillbox {
namespace {

constexpr const char* kNames[] = {"graphs.js", "NiceTitle.js", "NiceTitleAutoWidth.css"};

}  // namespace

void PutPageFiles(Files& files, const ApplicationFolder& folder) {
  if (folder.DataFolder() == folder.ProgramFolder()) return;
  for (const char* const name : kNames) {
    const std::optional<std::string> ours = files.Read(folder.ProgramFile(name));
    const std::string beside = folder.DataFile(name);
    if (ours && files.Read(beside) != ours) WriteAtomically(files, beside, *ours);
  }
}

}  // namespace quillbox

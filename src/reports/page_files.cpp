#include "reports/page_files.h"

#include <optional>
#include <string>

#include "config/atomic_write.h"

namespace quillbox {

void PutPageFiles(Files& files, const ApplicationFolder& folder) {
  if (folder.DataFolder() == folder.ProgramFolder()) return;
  for (const std::string_view name : kPageFiles) {
    const std::optional<std::string> ours = files.Read(folder.ProgramFile(name));
    const std::string beside = folder.DataFile(name);
    if (ours && files.Read(beside) != ours) WriteAtomically(files, beside, *ours);
  }
}

}  // namespace quillbox

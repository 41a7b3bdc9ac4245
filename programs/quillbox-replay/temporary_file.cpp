#include "quillbox-replay/temporary_file.h"

#include <stdlib.h>

#include <filesystem>

#include "quillbox-replay/request.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

void RemoveFolder(const std::string& folder) {
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}

}  // namespace

TemporaryFile::TemporaryFile(const std::string& content) {
  std::error_code failure;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(failure);
  folder_ = (parent / "quillbox-replay-XXXXXX").string();
  if (failure || mkdtemp(folder_.data()) == nullptr) {
    throw RequestError("no temporary folder can be made");
  }
  if (!SystemFiles().WriteNew(Path(), content)) {
    RemoveFolder(folder_);
    throw RequestError("no temporary file can be written");
  }
}

TemporaryFile::~TemporaryFile() {
  RemoveFolder(folder_);
}

}  // namespace quillbox

#include "dl/support/folder.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace quillbox {

Folder::Folder() {
  std::string path = (std::filesystem::temp_directory_path() / "dl-test-XXXXXX").string();
  if (::mkdtemp(path.data()) == nullptr) throw std::runtime_error("no folder for the test");
  path_ = path;
}

Folder::~Folder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string Folder::Path(const std::string& name) const {
  return name.empty() ? path_ : path_ + "/" + name;
}

std::optional<std::string> ReadWhole(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

void WriteWhole(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

}  // namespace quillbox

// A folder of a test's own that goes with it.
#pragma once

#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

namespace quillbox {

// Fast for a hundred megabytes too, though tests are compiled without optimisation.
inline std::optional<std::string> ReadWhole(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::ostringstream text;
  text << file.rdbuf();
  return std::move(text).str();
}

class TemporaryFolder {
 public:
  TemporaryFolder() {
    namespace fs = std::filesystem;
    std::random_device random;
    for (int tries = 0; tries < 100 && path_.empty(); ++tries) {
      const fs::path path = fs::temp_directory_path() / ("quillbox-" + std::to_string(random()));
      if (fs::create_directory(path)) path_ = path.string();
    }
    if (path_.empty()) throw std::runtime_error("no temporary folder");
    fs::permissions(path_, fs::perms::owner_all);
  }
  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& Path() const { return path_; }
  std::string File(const std::string& name) const { return path_ + "/" + name; }

  void Put(const std::string& name, const std::string& content) const {
    std::ofstream(File(name), std::ios::binary) << content;
  }

  // A program that does what `script` says.
  void PutProgram(const std::string& name, const std::string& script) const {
    Put(name, "#!/bin/sh\n" + script + "\n");
    std::filesystem::permissions(File(name), std::filesystem::perms::owner_all);
  }

  // Not through the code under test.
  std::string Content(const std::string& name) const { return ReadWhole(File(name)).value_or(""); }

 private:
  std::string path_;
};

}  // namespace quillbox

// Files in memory that are only read.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace quillbox {

class MemoryFiles final : public Files {
 public:
  // `content` must outlive this object.
  void Put(const std::string& path, std::string_view content) { files_[path] = content; }

  bool Exists(const std::string& path) override { return files_.contains(path); }

  std::optional<std::uint64_t> Size(const std::string& path) override {
    const auto found = files_.find(path);
    if (found == files_.end()) return std::nullopt;
    return found->second.size();
  }

  std::optional<std::string> Read(const std::string& path) override {
    const auto found = files_.find(path);
    if (found == files_.end()) return std::nullopt;
    return std::string(found->second);
  }

  // Like a disk that can't be written.
  bool WriteNew(const std::string&, const std::string&) override { return false; }
  bool Flush(const std::string&) override { return false; }
  bool Rename(const std::string&, const std::string&) override { return false; }
  bool Remove(const std::string& path) override { return !Exists(path); }
  std::vector<std::string> List(const std::string&, const std::string&) override { return {}; }

 private:
  std::map<std::string, std::string_view> files_;
};

}  // namespace quillbox

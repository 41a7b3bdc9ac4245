#include "config/atomic_write.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string_view>

namespace quillbox {
namespace {

constexpr std::array<std::string_view, 4> kSuffixes = {".new1", ".new2", ".new3", ".new4"};

// The file that took the content. Writers that died may have left theirs behind; once no name is
// free, the first of them makes room.
std::optional<std::string> WriteBeside(Files& files, const std::string& path,
                                       const std::string& content) {
  for (const std::string_view suffix : kSuffixes) {
    std::string beside = path + std::string(suffix);
    if (files.WriteNew(beside, content)) return beside;
  }
  std::string oldest = path + std::string(kSuffixes.front());
  if (!files.Remove(oldest) || !files.WriteNew(oldest, content)) return std::nullopt;
  return oldest;
}

}  // namespace

bool WriteAtomically(Files& files, const std::string& path, const std::string& content) {
  const std::optional<std::string> beside = WriteBeside(files, path, content);
  if (!beside) return false;
  if (!files.Flush(*beside) || !files.Rename(*beside, path)) {
    files.Remove(*beside);
    return false;
  }
  files.Flush(std::filesystem::path(path).parent_path().string());
  return true;
}

}  // namespace quillbox

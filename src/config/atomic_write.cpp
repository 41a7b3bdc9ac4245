#include "config/atomic_write.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string_view>

namespace quillbox {
namespace {

constexpr std::array<std::string_view, 4> kSuffixes = {".new1", ".new2", ".new3", ".new4"};

void RemoveLeftovers(Files& files, const std::string& path) {
  for (const std::string_view suffix : kSuffixes) {
    const std::string beside = path + std::string(suffix);
    if (files.Exists(beside)) files.Remove(beside);
  }
}

// The file that took the content. Something that can't be removed may have the first names.
std::optional<std::string> WriteBeside(Files& files, const std::string& path,
                                       const std::string& content) {
  for (const std::string_view suffix : kSuffixes) {
    std::string beside = path + std::string(suffix);
    if (files.WriteNew(beside, content)) return beside;
  }
  return std::nullopt;
}

// Of a path with at least one separator.
std::string FolderOf(const std::string& path) {
  constexpr auto kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);
  return path.substr(0, path.find_last_of(std::string{'/', kSeparator}));
}

}  // namespace

bool WriteAtomically(Files& files, const std::string& path, const std::string& content) {
  RemoveLeftovers(files, path);
  const std::optional<std::string> beside = WriteBeside(files, path, content);
  if (!beside) return false;
  if (!files.Flush(*beside) || !files.Rename(*beside, path)) {
    files.Remove(*beside);
    return false;
  }
  files.Flush(FolderOf(path));
  return true;
}

}  // namespace quillbox

#include "system/runtime_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace quillbox {
namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

bool IsOursAlone(const std::string& folder) {
  struct stat found {};
  return folder.starts_with('/') && ::stat(folder.c_str(), &found) == 0 && S_ISDIR(found.st_mode) &&
         found.st_uid == ::geteuid() && (found.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

// Empty when the person has no place for it.
std::string CacheFolder() {
  std::string cache = Variable("XDG_CACHE_HOME");
  if (!cache.starts_with('/')) {
    const std::string home = Variable("HOME");
    if (!home.starts_with('/')) return "";
    cache = home + "/.cache";
  }
  ::mkdir(cache.c_str(), S_IRWXU);
  std::string folder = cache + "/Quillbox";
  ::mkdir(folder.c_str(), S_IRWXU);
  return folder;
}

}  // namespace

std::string RuntimeFolder(std::size_t longest) {
  const auto fits = [&](const std::string& f) { return f.size() <= longest && IsOursAlone(f); };
  for (const std::string& folder :
       {Variable("XDG_RUNTIME_DIR"), "/run/user/" + std::to_string(::geteuid())}) {
    if (fits(folder)) return folder;
  }
  const std::string folder = CacheFolder();
  return fits(folder) ? folder : "";
}

}  // namespace quillbox

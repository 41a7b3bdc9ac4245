#include "grant_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "result_files.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

constexpr std::size_t kMostBytes = 64 << 10;

std::string Variable(const char* name) {
  const char* const text = std::getenv(name);
  return text == nullptr ? "" : text;
}

bool IsForOwnerAlone(int file) {
  struct stat status {};
  return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
         (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

std::optional<std::string> ReadAll(int file) {
  std::string text;
  char piece[4096];
  while (text.size() <= kMostBytes) {
    const ssize_t got = ::read(file, piece, sizeof piece);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::nullopt;
    if (got == 0) return text;
    text.append(piece, static_cast<std::size_t>(got));
  }
  return std::nullopt;
}

// With the folders above it, each for its owner alone.
bool MakeFolder(const std::string& folder) {
  for (std::size_t end = folder.find('/', 1);; end = folder.find('/', end + 1)) {
    const std::string part = folder.substr(0, end);
    if (::mkdir(part.c_str(), S_IRWXU) != 0 && errno != EEXIST) return false;
    if (end == std::string::npos) return true;
  }
}

}  // namespace

std::string GrantFolder() {
  const std::string data = Variable("XDG_DATA_HOME");
  if (data.starts_with('/')) return data + "/Quillbox/grants";
  const std::string home = Variable("HOME");
  return home.starts_with('/') ? home + "/.local/share/Quillbox/grants" : "";
}

// The name's letters alone: a colon has a meaning in file names on some systems.
std::string GrantPath(const std::string& folder, std::string_view name) {
  return folder + "/" + std::string(name.substr(kGrantNamePrefix.size()));
}

std::optional<Grant> LoadGrant(const std::string& folder, std::string_view name) {
  if (folder.empty() || !IsGrantName(name)) return std::nullopt;
  const int file =
      ::open(GrantPath(folder, name).c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return std::nullopt;
  const auto text = IsForOwnerAlone(file) ? ReadAll(file) : std::nullopt;
  ::close(file);
  return text ? ParseGrant(*text) : std::nullopt;
}

bool SaveGrant(const std::string& folder, std::string_view name, const Grant& grant) {
  if (folder.empty() || !IsGrantName(name) || !MakeFolder(folder)) return false;
  // It may have been there before, more open.
  if (::chmod(folder.c_str(), S_IRWXU) != 0) return false;
  const std::string text = GrantText(grant);
  return text.size() <= kMostBytes && WriteWholeFile(GrantPath(folder, name), text);
}

bool RemoveGrant(const std::string& folder, std::string_view name) {
  if (folder.empty() || !IsGrantName(name)) return true;
  return ::unlink(GrantPath(folder, name).c_str()) == 0 || errno == ENOENT || errno == ENOTDIR;
}

}  // namespace quillbox

#include "grant_files.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "system/file_locks.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

constexpr std::size_t kMostBytes = 64 << 10;
constexpr int kMostTries = 5;
constexpr std::size_t kRoom = 32 << 10;  // the longest token, and what stands beside it

// A run has the lock of its place for as long as it lives; one without a lock was left.
void RemoveLeftPlaces(const std::string& folder) {
  for (const std::string& name : FilesIn(folder).value_or(std::vector<std::string>{})) {
    if (name.ends_with(".part")) RemoveUnlocked(folder + "/" + name);
  }
}

}  // namespace

std::string GrantFolder() {
  const std::string data = DataFolder();
  return data.empty() ? "" : data + "/Quillbox/grants";
}

// The name's letters alone: a colon has a meaning in file names on some systems.
std::string GrantPath(const std::string& folder, std::string_view name) {
  return folder + "/" + std::string(name.substr(kGrantNamePrefix.size()));
}

std::optional<Grant> LoadGrant(const std::string& folder, std::string_view name) {
  if (folder.empty() || !IsGrantName(name)) return std::nullopt;
  const auto text = ReadOwnFile(GrantPath(folder, name), kMostBytes);
  return text ? ParseGrant(*text) : std::nullopt;
}

// Once it is locked, nobody takes the place for one that was left; before, another run may have.
GrantPlace::GrantPlace(std::string folder, std::string_view name) : folder_(std::move(folder)) {
  if (folder_.empty() || !IsGrantName(name) || !MakeOwnFolder(folder_)) return;
  RemoveLeftPlaces(folder_);
  const std::string path = GrantPath(folder_, name);
  for (int tries = 0; tries < kMostTries; ++tries) {
    place_.emplace(path, kRoom);
    if (!place_->IsMade()) return;
    if (TryLockAt(place_->Descriptor(), PartPath(path)) != LockState::kTaken) return;
  }
  place_.reset();
}

// The folder is flushed too: what stood there before is worth nothing any more.
bool GrantPlace::Keep(const Grant& grant) {
  const std::string text = GrantText(grant);
  if (!place_ || text.size() > kMostBytes || !place_->Arrive(text)) return false;
  FlushFolder(folder_);
  return true;
}

bool MayHoldAnother(const std::string& folder, std::string_view name, const std::string& clientId) {
  const auto files = FilesIn(folder);
  if (!files) return true;
  return std::ranges::any_of(*files, [&](const std::string& file) {
    const std::string other = std::string(kGrantNamePrefix) + file;
    if (other == name || !IsGrantName(other)) return false;
    const auto grant = LoadGrant(folder, other);
    return !grant || grant->Client.Id == clientId;
  });
}

bool RemoveGrant(const std::string& folder, std::string_view name) {
  if (folder.empty() || !IsGrantName(name)) return true;
  RemoveLeftPlaces(folder);
  return RemoveFile(GrantPath(folder, name));
}

}  // namespace quillbox

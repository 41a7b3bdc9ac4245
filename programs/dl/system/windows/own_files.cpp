#include "system/own_files.h"

#include <windows.h>

#include <aclapi.h>
#include <fcntl.h>
#include <io.h>
#include <sddl.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

#include "system/windows/wide.h"

namespace quillbox {
namespace {

// A security descriptor from its text, for as long as it lives.
class Descriptor {
 public:
  explicit Descriptor(const std::wstring& text) {
    ConvertStringSecurityDescriptorToSecurityDescriptorW(text.c_str(), SDDL_REVISION_1, &own_,
                                                         nullptr);
    attributes_ = {sizeof attributes_, own_, FALSE};
  }
  ~Descriptor() { LocalFree(own_); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  // Null when there is none: what is made then is not for its owner alone, so that it must not be
  // made.
  SECURITY_ATTRIBUTES* Attributes() { return own_ == nullptr ? nullptr : &attributes_; }
  PSECURITY_DESCRIPTOR Own() const { return own_; }

 private:
  PSECURITY_DESCRIPTOR own_ = nullptr;
  SECURITY_ATTRIBUTES attributes_{};
};

HANDLE HandleOf(int file) {
  return reinterpret_cast<HANDLE>(_get_osfhandle(file));
}

// Only a run that died under this process number can have left a file of this name. Nobody else can
// change the file while it is on its way, or take it away. It can be read, since it is open for a
// moment yet when it has got its name.
int CreateAfresh(const std::string& path) {
  const std::wstring wide = Wide(path);
  DeleteFileW(wide.c_str());
  Descriptor descriptor(FileForOwnerAlone());
  if (descriptor.Attributes() == nullptr) return -1;
  const HANDLE file =
      CreateFileW(wide.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, descriptor.Attributes(),
                  CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return -1;
  return _open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_BINARY);
}

bool WriteAll(int file, std::string_view content) {
  while (!content.empty()) {
    DWORD written = 0;
    const auto piece = static_cast<DWORD>(std::min(content.size(), std::size_t{1} << 20));
    if (WriteFile(HandleOf(file), content.data(), piece, &written, nullptr) == 0) return false;
    content.remove_prefix(written);
  }
  return true;
}

bool ToBegin(int file) {
  return SetFilePointer(HandleOf(file), 0, nullptr, FILE_BEGIN) != INVALID_SET_FILE_POINTER;
}

bool TakeRoom(int file, std::size_t room) {
  return room == 0 || (WriteAll(file, std::string(room, ' ')) &&
                       FlushFileBuffers(HandleOf(file)) != 0 && ToBegin(file));
}

bool IsReadOnly(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES &&
         (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0;
}

bool IsInUse(DWORD error) {
  return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
}

// While it is open, so that it is never without its owner. What it replaces may be open too, for
// the moment in which another run, or a search for viruses, reads it.
bool Rename(int file, const std::string& path) {
  const std::wstring wide = Wide(path);
  if (IsReadOnly(wide)) return false;
  const std::size_t bytes = wide.size() * sizeof(wchar_t);
  std::vector<std::byte> room(sizeof(FILE_RENAME_INFO) + bytes);
  auto* const wish = reinterpret_cast<FILE_RENAME_INFO*>(room.data());
  wish->ReplaceIfExists = TRUE;
  wish->FileNameLength = static_cast<DWORD>(bytes);
  std::memcpy(wish->FileName, wide.c_str(), bytes + sizeof(wchar_t));
  constexpr int kMostTries = 100;
  for (int tries = 1;; ++tries) {
    if (SetFileInformationByHandle(HandleOf(file), FileRenameInfo, wish,
                                   static_cast<DWORD>(room.size())) != 0) {
      return true;
    }
    if (!IsInUse(GetLastError()) || tries == kMostTries) return false;
    Sleep(10);
  }
}

void RemoveOpen(int file) {
  FILE_DISPOSITION_INFO gone{TRUE};
  SetFileInformationByHandle(HandleOf(file), FileDispositionInfo, &gone, sizeof gone);
}

bool IsPersonOrSystem(PSID who, PSID owner) {
  return EqualSid(who, owner) != 0 || IsWellKnownSid(who, WinLocalSystemSid) != 0 ||
         IsWellKnownSid(who, WinBuiltinAdministratorsSid) != 0 ||
         IsWellKnownSid(who, WinCreatorOwnerRightsSid) != 0;
}

// Whether nobody is allowed in but the owner, administrators and the system itself, which can read
// everything.
bool LetsNobodyElseIn(PACL list, PSID owner) {
  if (list == nullptr) return false;
  for (DWORD i = 0; i < list->AceCount; ++i) {
    void* entry = nullptr;
    if (GetAce(list, i, &entry) == 0) return false;
    const auto* const allowed = static_cast<const ACCESS_ALLOWED_ACE*>(entry);
    if (allowed->Header.AceType == ACCESS_DENIED_ACE_TYPE || allowed->Mask == 0) continue;
    if (allowed->Header.AceType != ACCESS_ALLOWED_ACE_TYPE) return false;
    if (!IsPersonOrSystem(const_cast<DWORD*>(&allowed->SidStart), owner)) return false;
  }
  return true;
}

bool IsForOwnerAlone(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION about;
  if (GetFileType(file) != FILE_TYPE_DISK || GetFileInformationByHandle(file, &about) == 0) {
    return false;
  }
  constexpr DWORD kNoFile = FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_DIRECTORY;
  if ((about.dwFileAttributes & kNoFile) != 0) return false;
  PSID owner = nullptr;
  PACL list = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  const bool known =
      GetSecurityInfo(file, SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION,
                      &owner, nullptr, &list, nullptr, &descriptor) == ERROR_SUCCESS;
  const bool own = known && LetsNobodyElseIn(list, owner);
  LocalFree(descriptor);
  return own;
}

bool IsAbsolute(std::wstring_view path) {
  const std::size_t cut = path.find_first_of(L"/\\");
  return cut == 0 || (cut == 2 && path[1] == L':');
}

std::optional<std::string> ReadAll(HANDLE file, std::size_t mostBytes) {
  std::string text;
  char piece[4096];
  for (DWORD got = 0; text.size() <= mostBytes; text.append(piece, got)) {
    if (ReadFile(file, piece, sizeof piece, &got, nullptr) == 0) return std::nullopt;
    if (got == 0) return text;
  }
  return std::nullopt;
}

}  // namespace

void RemoveOldFile(const std::string& path) {
  DeleteFileW(Wide(path).c_str());
}

std::string PartPath(const std::string& path) {
  return path + "." + std::to_string(GetCurrentProcessId()) + ".part";
}

ComingFile::ComingFile(std::string path, std::size_t room)
    : path_(std::move(path)), part_(PartPath(path_)), file_(CreateAfresh(part_)) {
  if (file_ < 0 || TakeRoom(file_, room)) return;
  RemoveOpen(file_);
  _close(std::exchange(file_, -1));
}

ComingFile::~ComingFile() {
  if (file_ < 0) return;
  RemoveOpen(file_);
  _close(file_);
}

bool ComingFile::Arrive(std::string_view content) {
  if (!IsMade()) return false;
  const bool arrived = WriteAll(file_, content) && SetEndOfFile(HandleOf(file_)) != 0 &&
                       FlushFileBuffers(HandleOf(file_)) != 0 && Rename(file_, path_);
  if (!arrived) RemoveOpen(file_);
  _close(std::exchange(file_, -1));
  return arrived;
}

bool WriteWholeFile(const std::string& path, std::string_view content) {
  return ComingFile(path, 0).Arrive(content);
}

std::optional<std::string> ReadOwnFile(const std::string& path, std::size_t mostBytes) {
  const HANDLE file =
      CreateFileW(Wide(path).c_str(), GENERIC_READ | READ_CONTROL,
                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                  FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  auto text = IsForOwnerAlone(file) ? ReadAll(file, mostBytes) : std::nullopt;
  CloseHandle(file);
  return text;
}

std::optional<std::vector<std::string>> FilesIn(const std::string& folder) {
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(Wide(folder + "/*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return std::nullopt;
  std::vector<std::string> names;
  do {
    names.push_back(Narrow(found.cFileName));
  } while (FindNextFileW(search, &found) != 0);
  FindClose(search);
  return names;
}

bool MakeOwnFolder(const std::string& folder) {
  Descriptor descriptor(FolderForOwnerAlone());
  if (descriptor.Attributes() == nullptr) return false;
  for (std::size_t end = folder.find_first_of("/\\", 3);;
       end = folder.find_first_of("/\\", end + 1)) {
    const std::wstring part = Wide(folder.substr(0, end));
    const bool made = CreateDirectoryW(part.c_str(), descriptor.Attributes()) != 0;
    if (!made && GetLastError() != ERROR_ALREADY_EXISTS) return false;
    if (end == std::string::npos) break;
  }
  // It may have been there before, more open.
  return SetFileSecurityW(Wide(folder).c_str(), DACL_SECURITY_INFORMATION, descriptor.Own()) != 0;
}

// Windows has no such call; a rename is in the file system's journal.
void FlushFolder(const std::string&) {}

bool RemoveFile(const std::string& path) {
  if (DeleteFileW(Wide(path).c_str()) != 0) return true;
  const DWORD error = GetLastError();
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

// XDG_DATA_HOME, if it is absolute, as elsewhere; else the system's place.
std::string DataFolder() {
  for (const wchar_t* const name : {L"XDG_DATA_HOME", L"LOCALAPPDATA"}) {
    const wchar_t* const folder = _wgetenv(name);
    if (folder != nullptr && IsAbsolute(folder)) return Narrow(folder);
  }
  return "";
}

}  // namespace quillbox

// Files of the operating system.
#include "system/system_files.h"

#include <windows.h>

#include <sddl.h>

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

#include "text/text_list.h"
#include "windows_base/own_handle.h"
#include "windows_base/wide_text.h"

namespace quillbox {
std::wstring PersonsNumber() {
  HANDLE opened = nullptr;
  if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &opened)) return L"OW";
  const OwnHandle token(opened);
  alignas(TOKEN_USER) std::byte user[sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE];
  DWORD size = sizeof user;
  wchar_t* text = nullptr;
  if (!::GetTokenInformation(opened, TokenUser, user, size, &size) ||
      !::ConvertSidToStringSidW(reinterpret_cast<const TOKEN_USER*>(user)->User.Sid, &text)) {
    return L"OW";
  }
  std::wstring number = text;
  ::LocalFree(text);
  return number;
}

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// `rights`: how they are inherited, and which, as security descriptors write it.
PSECURITY_DESCRIPTOR OwnersRights(const std::wstring& rights) {
  const std::wstring text = L"D:P(A;" + rights + L";;;" + PersonsNumber() + L")";
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  ::ConvertStringSecurityDescriptorToSecurityDescriptorW(text.c_str(), SDDL_REVISION_1, &descriptor,
                                                         nullptr);
  return descriptor;
}

}  // namespace

SECURITY_ATTRIBUTES ForOwnerAlone() {
  static const PSECURITY_DESCRIPTOR rights = OwnersRights(L"OICI;FA");
  return {sizeof(SECURITY_ATTRIBUTES), rights, FALSE};
}

SECURITY_ATTRIBUTES FileForOwnerAlone() {
  static const PSECURITY_DESCRIPTOR rights = OwnersRights(L";0x1f019f");
  return {sizeof(SECURITY_ATTRIBUTES), rights, FALSE};
}

std::wstring LongPath(const std::string& path) {
  const std::wstring wide = WideOfPath(path);
  if (wide.empty() || wide.find(L'\0') != std::wstring::npos) return {};
  std::wstring full(::GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(
      ::GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  if (full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\")) return full;
  if (full.starts_with(L"\\\\")) return L"\\\\?\\UNC" + full.substr(1);
  return L"\\\\?\\" + full;
}

namespace {

OwnHandle Open(const std::string& path, DWORD access, DWORD flags = FILE_ATTRIBUTE_NORMAL) {
  const std::wstring name = LongPath(path);
  return OwnHandle(
      ::CreateFileW(name.c_str(), access, kShareAll, nullptr, OPEN_EXISTING, flags, nullptr));
}

// Nothing when it is no file of a disk.
std::optional<std::uint64_t> SizeOfFile(const OwnHandle& file) {
  BY_HANDLE_FILE_INFORMATION about{};
  if (!IsOpen(file) || ::GetFileType(file.get()) != FILE_TYPE_DISK ||
      !::GetFileInformationByHandle(file.get(), &about) ||
      (about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    return std::nullopt;
  }
  return std::uint64_t{about.nFileSizeHigh} << 32U | about.nFileSizeLow;
}

bool WriteAllOf(const OwnHandle& file, std::string_view content) {
  while (!content.empty()) {
    const DWORD part = static_cast<DWORD>(std::min<std::size_t>(content.size(), 1U << 24U));
    DWORD written = 0;
    if (!::WriteFile(file.get(), content.data(), part, &written, nullptr) || written == 0) {
      return false;
    }
    content.remove_prefix(written);
  }
  return true;
}

// Also true when there is nothing. Not every system refuses by itself to replace a read-only file.
bool MayBeReplaced(const std::string& path) {
  const DWORD attributes = ::GetFileAttributesW(LongPath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return true;
  if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0) return false;
  const OwnHandle file = Open(path, GENERIC_WRITE, FILE_FLAG_OPEN_REPARSE_POINT);
  return IsOpen(file) || ::GetLastError() != ERROR_ACCESS_DENIED;
}

bool IsInUse(DWORD error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
}

}  // namespace

bool SystemFiles::Exists(const std::string& path) {
  return SizeOfFile(Open(path, FILE_READ_ATTRIBUTES)).has_value();
}

std::optional<std::uint64_t> SystemFiles::Size(const std::string& path) {
  return SizeOfFile(Open(path, FILE_READ_ATTRIBUTES));
}

std::optional<std::string> SystemFiles::Read(const std::string& path) {
  const OwnHandle file = Open(path, GENERIC_READ);
  const auto size = SizeOfFile(file);
  if (!size || *size > kLargestFile) return std::nullopt;

  std::string content;
  std::vector<char> block(64U << 10U);
  for (;;) {
    DWORD count = 0;
    if (!::ReadFile(file.get(), block.data(), static_cast<DWORD>(block.size()), &count, nullptr)) {
      return std::nullopt;
    }
    if (count == 0) return content;
    content.append(block.data(), count);
    if (content.size() > kLargestFile) return std::nullopt;  // it grew meanwhile
  }
}

bool SystemFiles::WriteNew(const std::string& path, const std::string& content) {
  const std::wstring name = LongPath(path);
  SECURITY_ATTRIBUTES rights = FileForOwnerAlone();
  if (rights.lpSecurityDescriptor == nullptr) return false;
  OwnHandle file(::CreateFileW(name.c_str(), GENERIC_WRITE, 0, &rights, CREATE_NEW,
                               FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  if (!IsOpen(file)) return false;
  if (WriteAllOf(file, content)) return true;
  file.reset();
  ::DeleteFileW(name.c_str());
  return false;
}

// A folder has nothing to flush: its names are written through when they change.
bool SystemFiles::Flush(const std::string& path) {
  const DWORD attributes = ::GetFileAttributesW(LongPath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return false;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return true;
  const OwnHandle file = Open(path, GENERIC_WRITE);
  return SizeOfFile(file) && ::FlushFileBuffers(file.get());
}

// What looks at new files (searching, a virus scanner) holds them for a moment.
bool SystemFiles::Rename(const std::string& from, const std::string& to) {
  constexpr int kTries = 10;
  constexpr DWORD kBetweenTries = 20;  // milliseconds
  if (!MayBeReplaced(to) || !Exists(from)) return false;
  const std::wstring source = LongPath(from), target = LongPath(to);
  for (int i = 0; i < kTries; ++i) {
    if (::MoveFileExW(source.c_str(), target.c_str(),
                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
      return true;
    }
    if (!IsInUse(::GetLastError())) return false;
    ::Sleep(kBetweenTries);
  }
  return false;
}

bool SystemFiles::Remove(const std::string& path) {
  if (::DeleteFileW(LongPath(path).c_str())) return true;
  const DWORD error = ::GetLastError();
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

std::vector<std::string> SystemFiles::List(const std::string& folder, const std::string& pattern) {
  struct SearchCloser {
    using pointer = HANDLE;
    void operator()(HANDLE search) const { ::FindClose(search); }
  };
  std::vector<std::string> names;
  WIN32_FIND_DATAW entry{};
  const HANDLE first = ::FindFirstFileW((LongPath(folder) + L"\\*").c_str(), &entry);
  if (first == INVALID_HANDLE_VALUE) return names;
  const std::unique_ptr<HANDLE, SearchCloser> search(first);
  do {
    const std::string name = PathOfWide(entry.cFileName);
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 &&
        MatchesFilePattern(name, pattern)) {
      names.push_back(name);
    }
  } while (::FindNextFileW(first, &entry));
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace quillbox

#include "system/windows/wide.h"

#include <windows.h>

#include <sddl.h>

#include <cstddef>
#include <optional>
#include <vector>

#include "text/code_page.h"

namespace quillbox {
namespace {

using UserBuffer = std::vector<std::byte>;

PSID SidOf(const UserBuffer& user) {
  return reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid;
}

std::optional<UserBuffer> UserOf(HANDLE process) {
  HANDLE token = nullptr;
  if (OpenProcessToken(process, TOKEN_QUERY, &token) == 0) return std::nullopt;
  DWORD size = 0;
  GetTokenInformation(token, TokenUser, nullptr, 0, &size);
  UserBuffer user(size);
  const bool known =
      size > 0 && GetTokenInformation(token, TokenUser, user.data(), size, &size) != 0;
  CloseHandle(token);
  return known ? std::optional(std::move(user)) : std::nullopt;
}

// `inherited`: "OICI" for what holds others. `rights`: as the notation has them.
std::wstring ForOwnerAlone(const std::wstring& inherited, const std::wstring& rights) {
  std::wstring person = L"OW";  // the owner, whoever that is
  wchar_t* name = nullptr;
  const auto user = UserOf(GetCurrentProcess());
  if (user && ConvertSidToStringSidW(SidOf(*user), &name) != 0) {
    person = name;
    LocalFree(name);
  }
  return L"D:P(A;" + inherited + L";" + rights + L";;;" + person + L")";
}

}  // namespace

std::wstring Wide(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  const int length =
      MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), size, nullptr, 0);
  if (length == 0 && size > 0) return Wide(ToUtf8(utf8));
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string Narrow(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  std::string utf8(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), size,
                                                                nullptr, 0, nullptr, nullptr)),
                   '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, utf8.data(), static_cast<int>(utf8.size()),
                      nullptr, nullptr);
  return utf8;
}

// All rights but that to execute.
std::wstring FileForOwnerAlone() {
  return ForOwnerAlone(L"", L"0x1f019f");
}

std::wstring FolderForOwnerAlone() {
  return ForOwnerAlone(L"OICI", L"FA");
}

bool IsOwnProcess(unsigned long process) {
  const HANDLE open = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process);
  if (open == nullptr) return false;
  const auto other = UserOf(open);
  CloseHandle(open);
  const auto own = UserOf(GetCurrentProcess());
  return other && own && EqualSid(SidOf(*other), SidOf(*own)) != 0;
}

}  // namespace quillbox

#include "system/opener.h"

#include <windows.h>

#include <shellapi.h>

#include <cwchar>
#include <string_view>
#include <utility>
#include <vector>

#include "system/windows/wide.h"

namespace quillbox {
namespace {

// Proxies whose password we were given, out of the environment that the browser inherits, until the
// end.
class WithoutPasswords {
 public:
  WithoutPasswords() {
    wchar_t* const all = GetEnvironmentStringsW();
    for (const wchar_t* variable = all; *variable != 0; variable += std::wcslen(variable) + 1) {
      const std::wstring_view text(variable);
      const std::size_t cut = text.find(L'=', 1);
      if (cut == text.npos || text.find(L'@', cut) == text.npos) continue;
      const std::wstring_view name = text.substr(0, cut);
      if (name.ends_with(L"_proxy") || name.ends_with(L"_PROXY")) {
        hidden_.emplace_back(name, text.substr(cut + 1));
      }
    }
    FreeEnvironmentStringsW(all);
    for (const auto& [name, value] : hidden_) SetEnvironmentVariableW(name.c_str(), nullptr);
  }
  ~WithoutPasswords() {
    for (const auto& [name, value] : hidden_) SetEnvironmentVariableW(name.c_str(), value.c_str());
  }
  WithoutPasswords(const WithoutPasswords&) = delete;
  WithoutPasswords& operator=(const WithoutPasswords&) = delete;

 private:
  std::vector<std::pair<std::wstring, std::wstring>> hidden_;
};

}  // namespace

Opener::Opener(const std::string& address, unsigned) {
  const WithoutPasswords environment;
  const auto told = reinterpret_cast<std::intptr_t>(
      ShellExecuteW(nullptr, L"open", Wide(address).c_str(), nullptr, nullptr, SW_SHOWNORMAL));
  process_ = told > 32 ? 0 : -1;
}

// The system has passed the address on and tells no more.
std::optional<bool> Opener::Failed() const {
  return std::nullopt;
}

}  // namespace quillbox

#include <windows.h>

#include <process.h>

#include <filesystem>

#include "ports/tried_host.h"
#include "system/system_files.h"
#include "system/system_surroundings.h"
#include "system/temporary_folder.h"
#include "text/code_page.h"
#include "windows/registry_store.h"
#include "windows/windows_agents.h"
#include "windows/windows_process.h"
#include "windows_base/wide_text.h"

namespace quillbox {
namespace {

constexpr wchar_t kRoot[] = L"Software\\QuillboxTried";

class SystemHost final : public TriedHost {
 public:
  SystemHost() { startUp_.Remove(); }
  ~SystemHost() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, kRoot); }
  SystemHost(const SystemHost&) = delete;
  SystemHost& operator=(const SystemHost&) = delete;

  Files& Disk() override { return files_; }
  std::string File(const std::string& name) override { return folder_.Path() + "\\" + name; }
  std::string Folder() override { return folder_.Path(); }
  void MakeReadOnly(const std::string& path) override {
    ::SetFileAttributesW(WideOfPath(path).c_str(), FILE_ATTRIBUTE_READONLY);
  }

  PerUserStore& Store() override { return store_; }
  std::unique_ptr<PerUserStore> SameStore() override { return MakeStore(); }

  Environment& Variables() override { return variables_; }
  void SetVariable(const std::string& name, const std::string& value) override {
    SetProcessVariable(name, value);
  }

  Clock& Time() override { return clock_; }
  StartUpEntry& StartUp() override { return startUp_; }
  NetworkState& Network() override { return network_; }

 private:
  const TemporaryFolder folder_;
  const LSTATUS emptied_ = ::RegDeleteTreeW(HKEY_CURRENT_USER, kRoot);
  const ApplicationFolder program_{"C:\\Quillbox", "C:\\Quillbox", '\\'};
  SystemFiles files_;
  RegistryStore store_{kRoot};
  SystemEnvironment variables_;
  SystemClock clock_;
  RunValue startUp_{program_};
  SystemNetworkState network_;
};

}  // namespace

std::unique_ptr<TriedHost> MakeSystemHost() {
  return std::make_unique<SystemHost>();
}

void SetProcessVariable(const std::string& name, const std::string& value) {
  ::SetEnvironmentVariableW(WideOfPath(name).c_str(),
                            value.empty() ? nullptr : WideOfPath(value).c_str());
}

std::unique_ptr<PerUserStore> MakeStore() {
  return std::make_unique<RegistryStore>(kRoot);
}

std::unique_ptr<AgentRunner> MakeAgents(const std::string& program) {
  return std::make_unique<WindowsAgents>(program);
}

std::string AsArgument(const std::string& text) {
  return ToUtf8(text);
}

bool StartBeside(const std::string& program, const std::string& word) {
  return ::_spawnl(_P_NOWAIT, program.c_str(), "beside", word.c_str(), nullptr) != -1;
}

}  // namespace quillbox

#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <vector>

#include "ports/tried_host.h"
#include "support/ordinary_user.h"
#include "system/agent_processes.h"
#include "system/autostart_entry.h"
#include "system/settings_file.h"
#include "system/system_files.h"
#include "system/system_surroundings.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

class SystemHost final : public TriedHost {
 public:
  Files& Disk() override { return files_; }
  std::string File(const std::string& name) override { return folder_.File(name); }
  std::string Folder() override { return folder_.Path(); }
  void MakeReadOnly(const std::string& path) override {
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    user_.emplace(std::vector{folder_.Path(), path});
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
  const TemporaryFolder folder_, configuration_;
  const int told_ = ::setenv("XDG_CONFIG_HOME", configuration_.Path().c_str(), 1);
  const ApplicationFolder program_{"/opt/quillbox", "/opt/quillbox", '/'};
  SystemFiles files_;
  SettingsFile store_{files_};
  SystemEnvironment variables_;
  SystemClock clock_;
  AutostartEntry startUp_{files_, program_};
  SystemNetworkState network_;
  std::optional<OrdinaryUser> user_;
};

}  // namespace

std::unique_ptr<TriedHost> MakeSystemHost() {
  return std::make_unique<SystemHost>();
}

void SetProcessVariable(const std::string& name, const std::string& value) {
  value.empty() ? ::unsetenv(name.c_str()) : ::setenv(name.c_str(), value.c_str(), 1);
}

std::unique_ptr<PerUserStore> MakeStore() {
  static SystemFiles files;
  return std::make_unique<SettingsFile>(files);
}

std::unique_ptr<AgentRunner> MakeAgents(const std::string& program) {
  return std::make_unique<AgentProcesses>(program);
}

std::string AsArgument(const std::string& text) {
  return text;
}

bool StartBeside(const std::string& program, const std::string& word) {
  return std::system(("'" + program + "' " + word + " &").c_str()) == 0;
}

}  // namespace quillbox

// The whole program on a simulated host, ready to be set up, started and used.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "config/account_list.h"
#include "config/setting_keys.h"
#include "region/regional_settings.h"
#include "shell/program.h"
#include "simulated/simulated_host.h"
#include "state/app_state.h"
#include "state/program_context.h"

namespace quillbox {

// Set up the host and the members below first, then Start. Start can be called again when the
// process has ended: a new process on the same host, with the settings and files that there are.
class SimulatedProgram {
 public:
  // The folder of the program and of its files.
  static constexpr const char* kFolder = "/app";

  explicit SimulatedProgram(std::uint64_t seed = 0) : Host(seed) {}

  SimulatedHost Host;
  RegionalSettings Region;
  BuildValues Build{"adsense.example.test", "example.test", "https://quillbox.example.test",
                    "support@quillbox.example.test", "1.3.0"};

  // The path of a file of the application folder.
  static std::string PathOf(std::string_view name);

  // In the per-user store, as if written long ago.
  void Set(const SettingKey& key, std::string_view value);
  std::string Setting(const SettingKey& key);
  void AddAccount(const std::string& name, const std::string& username,
                  const std::string& password);

  // The settings of a person who has used the program before: no greeting, no version checks.
  void UsedBefore();

  // Runs Main. What Main waits for is waited for in simulated time.
  void Start();

  // After Start; still there, as it was, when the process has ended.
  const AppState& State() const { return program_->State(); }

 private:
  AccountList accounts_;
  std::unique_ptr<Program> program_;
};

}  // namespace quillbox

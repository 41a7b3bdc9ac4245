// What a routine of the program works with.
#pragma once

#include <string>

#include "config/application_folder.h"
#include "config/settings_store.h"
#include "platform/host.h"
#include "region/regional_settings.h"
#include "state/app_state.h"

namespace quillbox {

// Names and addresses that are fixed when the program is built.
struct BuildValues {
  std::string ServiceHost;    // of the report service; may carry a port
  std::string ServiceDomain;  // its name in messages
  std::string MakerAddress;   // base address of the maker's site, without a slash at its end
  std::string MakerEmail;
  std::string Version;  // "1.3.0"

  std::string ForumAddress() const { return MakerAddress + "/Forum/index.php?c=19"; }
};

// References: all of it outlives every routine that is handed it.
struct ProgramContext {
  AppState& State;
  SettingsStore& Store;
  quillbox::Host& Host;
  const ApplicationFolder& Folder;
  const RegionalSettings& Region;
  const BuildValues& Build;
};

}  // namespace quillbox

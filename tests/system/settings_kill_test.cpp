// Options are applied on a real disk by a process that is killed. QUILLBOX_ROUNDS sets the number
// of kills.
#include <gtest/gtest.h>
#include <stdlib.h>

#include "options/apply_kills.h"
#include "simulated/simulated_store.h"
#include "system/settings_file.h"
#include "system/system_files.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

TEST(SettingsKill, AFileHoldsOldOrNewSettings) {
  const TemporaryFolder folder;
  SystemFiles files;
  SimulatedStore userStore;  // not in use
  ExpectOldOrNewAfterKills(userStore, files, folder.Path(), "Default");
}

TEST(SettingsKill, ThePerUserStoreHoldsOldOrNewSettings) {
  const TemporaryFolder folder;
  ::setenv("XDG_CONFIG_HOME", folder.Path().c_str(), 1);
  SystemFiles files;
  SettingsFile userStore(files);
  ExpectOldOrNewAfterKills(userStore, files, folder.Path(), "");
}

}  // namespace
}  // namespace quillbox

// Options are applied in file mode, on a real disk, by a process that is killed. QUILLBOX_ROUNDS
// sets the number of kills.
#include <gtest/gtest.h>

#include "options/apply_kills.h"
#include "simulated/simulated_store.h"
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

}  // namespace
}  // namespace quillbox

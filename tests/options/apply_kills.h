// Processes that are killed while they apply options.
#pragma once

#include <string>

#include "platform/storage.h"

namespace quillbox {

// Kills such a process at a random moment, Rounds() times, and expects that each leaves the old or
// the new value of every setting, never a mixture of old and new account lists, and nothing that
// keeps the next one from writing. Store, folder and profile are those of OptionsOnStore.
void ExpectOldOrNewAfterKills(PerUserStore& userStore, Files& files, const std::string& folder,
                              const std::string& profile);

}  // namespace quillbox

// Options are applied on a real disk by a process that is killed. QUILLBOX_ROUNDS sets the number
// of kills.
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <random>
#include <thread>

#include "options/options_on_store.h"
#include "simulated/simulated_store.h"
#include "support/rounds.h"
#include "system/settings_file.h"
#include "system/system_files.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

// Never returns. Tells through `ready` that the first Apply is through.
[[noreturn]] void ApplyForever(OptionsOnStore options, unsigned generation, int ready) {
  options.Apply(generation);
  if (::write(ready, "!", 1) != 1) ::_exit(1);
  for (;;) options.Apply(++generation);
}

// `applyForever` is to write into the descriptor as soon as it can be killed.
void KillInTheMiddle(const std::function<void(int)>& applyForever,
                     std::chrono::microseconds after) {
  int ready[2] = {};
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t process = ::fork();
  ASSERT_GE(process, 0);
  if (process == 0) {
    ::alarm(60);  // should the parent die first
    applyForever(ready[1]);
  }
  ::close(ready[1]);
  char byte = 0;
  EXPECT_EQ(::read(ready[0], &byte, 1), 1) << "it never got going";
  ::close(ready[0]);
  std::this_thread::sleep_for(after);
  ::kill(process, SIGKILL);
  int status = 0;
  ASSERT_EQ(::waitpid(process, &status, 0), process);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
}

class SettingsKill : public testing::Test {
 protected:
  // Kills at random moments. Each leaves the old or the new value of every setting, never a mixture
  // of old and new account lists, and nothing that keeps the next one from writing.
  void ExpectOldOrNew(PerUserStore& userStore, const std::string& profile) {
    constexpr unsigned kGenerationsOfARound = 100'000;
    const ApplicationFolder place(folder_.Path(), folder_.Path(), '/');
    const SettingsStore store(userStore, files_, place, profile);
    std::mt19937_64 random(static_cast<unsigned>(::getpid()));
    for (int round = 0; round < Rounds(); ++round) {
      const unsigned first = static_cast<unsigned>(round + 1) * kGenerationsOfARound;
      const std::chrono::microseconds after(random() % 50'000);
      KillInTheMiddle(
          [&](int ready) {
            ApplyForever(OptionsOnStore(userStore, files_, folder_.Path(), profile), first, ready);
          },
          after);
      const StoppedApply found = InspectStoppedApply(store);
      EXPECT_GE(found.Generation, first) << "nothing was written any more";
      EXPECT_EQ(found.Problem, "");
      ASSERT_FALSE(HasFailure()) << "round " << round << ", killed after " << after.count()
                                 << " us";
    }
  }

  const TemporaryFolder folder_;
  SystemFiles files_;
};

TEST_F(SettingsKill, AFileHoldsOldOrNewSettings) {
  SimulatedStore userStore;  // not in use
  ExpectOldOrNew(userStore, "Default");
}

TEST_F(SettingsKill, ThePerUserStoreHoldsOldOrNewSettings) {
  ::setenv("XDG_CONFIG_HOME", folder_.Path().c_str(), 1);
  SettingsFile userStore(files_);
  ExpectOldOrNew(userStore, "");
}

}  // namespace
}  // namespace quillbox

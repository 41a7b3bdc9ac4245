#include "options/apply_kills.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <random>
#include <thread>

#include "options/options_on_store.h"
#include "support/rounds.h"

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

}  // namespace

void ExpectOldOrNewAfterKills(PerUserStore& userStore, Files& files, const std::string& folder,
                              const std::string& profile) {
  constexpr unsigned kGenerationsOfARound = 100'000;
  const ApplicationFolder place(folder, folder, '/');
  const SettingsStore store(userStore, files, place, profile);
  std::mt19937_64 random(static_cast<unsigned>(::getpid()));
  int between = 0;
  for (int round = 0; round < Rounds(); ++round) {
    const unsigned first = static_cast<unsigned>(round + 1) * kGenerationsOfARound;
    const std::chrono::microseconds after(random() % 50'000);
    KillInTheMiddle(
        [&](int ready) {
          ApplyForever(OptionsOnStore(userStore, files, folder, profile), first, ready);
        },
        after);
    const StoppedApply found = InspectStoppedApply(store);
    EXPECT_GE(found.Generation, first) << "nothing was written any more";
    EXPECT_EQ(found.Problem, "");
    ASSERT_FALSE(testing::Test::HasFailure())
        << "round " << round << ", killed after " << after.count() << " us";
    if (found.Old > 0 && found.New > 0) ++between;
  }
  testing::Test::RecordProperty("KilledBetweenPages", between);
}

}  // namespace quillbox

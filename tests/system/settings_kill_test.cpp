// A process that writes settings is killed at random moments: the file holds the old or the new
// settings, never a mixture. QUILLBOX_ROUNDS sets the number of kills.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

#include "config/profile_file.h"
#include "system/system_files.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

constexpr int kKeys = 40;

int Rounds() {
  const char* text = std::getenv("QUILLBOX_ROUNDS");
  return text == nullptr ? 3 : std::atoi(text);
}

// All keys get the same value; its length depends on the number, so that files differ in size.
std::vector<SettingChange> Generation(unsigned number) {
  const std::string value = std::to_string(number) + ":" + std::string(1 + number % 7 * 90, 'x');
  std::vector<SettingChange> changes;
  for (int key = 0; key < kKeys; ++key) {
    changes.push_back({"Section" + std::to_string(key % 5), "Key" + std::to_string(key), value});
  }
  return changes;
}

// Never returns. Reports the first generation on disk through `ready`.
[[noreturn]] void WriteForever(const std::string& path, int ready) {
  ::alarm(60);  // should the parent die first
  SystemFiles files;
  for (unsigned number = 0;; ++number) {
    IniWrite(files, Generation(number), path);
    if (number == 0 && ::write(ready, "!", 1) != 1) ::_exit(1);
  }
}

void KillAWriter(const std::string& path, std::chrono::microseconds after) {
  int ready[2] = {};
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t writer = ::fork();
  ASSERT_GE(writer, 0);
  if (writer == 0) WriteForever(path, ready[1]);
  ::close(ready[1]);
  char byte = 0;
  EXPECT_EQ(::read(ready[0], &byte, 1), 1) << "the writer never got going";
  std::this_thread::sleep_for(after);
  ::kill(writer, SIGKILL);
  int status = 0;
  ASSERT_EQ(::waitpid(writer, &status, 0), writer);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
  ::close(ready[0]);
}

void ExpectOneWholeGeneration(const std::string& text) {
  const std::string value = ReadProfileValue(text, "Section0", "Key0");
  ASSERT_NE(value, "");
  std::string whole;
  for (const SettingChange& c : Generation(static_cast<unsigned>(std::atoi(value.c_str())))) {
    whole = WithProfileValue(whole, c.Section, c.Key, *c.Value);
  }
  EXPECT_EQ(text, whole);
}

TEST(SettingsKill, OldOrNewNeverAMixture) {
  const TemporaryFolder folder;
  const std::string path = folder.File("Default.ini");
  std::mt19937_64 random(static_cast<unsigned>(::getpid()));
  for (int round = 0; round < Rounds(); ++round) {
    const std::chrono::microseconds after(random() % 20'000);
    KillAWriter(path, after);
    ExpectOneWholeGeneration(folder.Content("Default.ini"));
    ASSERT_FALSE(HasFailure()) << "round " << round << ", killed after " << after.count() << " us";
  }
}

}  // namespace
}  // namespace quillbox

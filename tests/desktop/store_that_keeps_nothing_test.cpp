// The per-user store when the disk doesn't take what it writes: it reads back what is on disk.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "config/settings_store.h"
#include "desktop/settings_per_user_store.h"
#include "support/child_process.h"
#include "system/system_environment.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

enum Result { kKept = 0, kFileMode = 10, kOldValueLost = 11, kNoPreparation = 12 };

constexpr const char* kOld = "[Misc]\nRuns=old\n";

void Write(SettingsPerUserStore& store, const char* key, const std::string& value) {
  const SettingChange change{"Misc", key, value};
  store.Apply({&change, 1});
}

// What the program does at its start, and what becomes of a value that was there before.
int Probe() {
  SettingsPerUserStore userStore;
  Write(userStore, "Version", "new");
  Write(userStore, "Runs", "new");
  const std::string old = userStore.Read("Misc", "Runs");
  if (old != "" && old != "old" && old != "new") return kOldValueLost;

  SystemFiles files;
  SystemEnvironment environment;
  const ApplicationFolder folder("/nonexistent", "/nonexistent", '/');
  const std::string perUserMode;
  SettingsStore store(userStore, files, folder, perUserMode);
  const bool fileMode = !ChooseSettingsProfile(store, environment).empty();
  if (!fileMode) return kKept;
  // Still so when it is asked again, and nothing was thrown away.
  if (!userStore.Read("Misc", "RegTest").empty()) return kKept;
  return userStore.Read("Misc", "Runs") == old ? kFileMode : kOldValueLost;
}

void RefuseEveryWrite() {
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit none{};
  if (::setrlimit(RLIMIT_FSIZE, &none) != 0) ::_exit(kNoPreparation);
}

class StoreThatKeepsNothing : public testing::Test {
 protected:
  ~StoreThatKeepsNothing() override { Clear(); }

  void Clear() const {
    for (const fs::path& path : {config_, folder_}) {
      if (fs::exists(path)) fs::permissions(path, fs::perms::owner_all);
    }
    fs::remove_all(config_);
  }

  // Old settings of an ordinary user.
  void Begin() const {
    Clear();
    fs::create_directories(folder_);
    std::ofstream(file_) << kOld;
    if (::geteuid() != 0) return;
    fs::permissions(config_.parent_path(), fs::perms(0755));
    for (const fs::path& path : {config_, folder_, file_}) {
      ASSERT_EQ(::chown(path.c_str(), kNobody, kNobody), 0);
    }
  }

  const fs::path config_ = std::getenv("XDG_CONFIG_HOME");
  const fs::path folder_ = config_ / "Quillbox", file_ = folder_ / "Quillbox.conf";
};

TEST_F(StoreThatKeepsNothing, IsNoticedOnlyWhenItIsSo) {
  constexpr auto kReadOnly = fs::perms::owner_read | fs::perms::owner_exec;
  const struct Case {
    const char* name;
    std::function<void()> prepare;  // as the user
    Result result;
    std::optional<std::string> content;
  } kCases[] = {
      {"all is well", [] {}, kKept, "[Misc]\nRegTest=Test\nRuns=new\nVersion=new\n"},
      {"read-only file", [&] { fs::permissions(file_, fs::perms::owner_read); }, kFileMode, kOld},
      {"read-only folder", [&] { fs::permissions(folder_, kReadOnly); }, kFileMode, kOld},
      {"no folder, and none can be made",
       [&] {
         fs::remove_all(folder_);
         fs::permissions(config_, kReadOnly);
       },
       kFileMode, std::nullopt},
      {"every write is refused", RefuseEveryWrite, kFileMode, kOld},
  };
  for (const Case& c : kCases) {
    Begin();
    const auto prepareAndProbe = [&] {
      c.prepare();
      return Probe();
    };
    EXPECT_EQ(InChildAs(kNobody, prepareAndProbe), c.result) << c.name;
    EXPECT_EQ(SystemFiles().Read(file_), c.content) << c.name;
  }
}

}  // namespace
}  // namespace quillbox

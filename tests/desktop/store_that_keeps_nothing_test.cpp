// The per-user store when the disk doesn't take what it writes: it reads back what is on disk.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <csignal>
#include <filesystem>
#include <fstream>

#include "config/settings_store.h"
#include "desktop/child_process.h"
#include "desktop/settings_per_user_store.h"
#include "system/system_environment.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

enum Result { kKept = 0, kFileMode = 10, kOldValueLost = 11, kNoPreparation = 12 };

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

class StoreThatKeepsNothing : public testing::Test {
 protected:
  void SetUp() override {
    config_ = fs::path(std::getenv("XDG_CONFIG_HOME"));
    fs::remove_all(config_);
    fs::create_directories(config_ / "Quillbox");
    std::ofstream(File()) << "[Misc]\nRuns=old\n";
    fs::permissions(config_.parent_path(), fs::perms(0755));
    GiveToNobody();
  }
  void TearDown() override { fs::permissions(config_ / "Quillbox", fs::perms::owner_all); }

  fs::path File() const { return config_ / "Quillbox" / "Quillbox.conf"; }

  void GiveToNobody() const {
    if (::geteuid() != 0) return;
    for (const fs::path& path : {config_, config_ / "Quillbox", File()}) {
      ASSERT_EQ(::chown(path.c_str(), kNobody, kNobody), 0);
    }
  }

  std::string Content() const {
    std::ifstream file(File());
    return {std::istreambuf_iterator<char>(file), {}};
  }

  fs::path config_;
};

TEST_F(StoreThatKeepsNothing, IsNoticedOnlyWhenItIsSo) {
  EXPECT_EQ(InChildAs(kNobody, Probe), kKept);
}

TEST_F(StoreThatKeepsNothing, FileIsReadOnly) {
  fs::permissions(File(), fs::perms::owner_read);
  EXPECT_EQ(InChildAs(kNobody, Probe), kFileMode);
  EXPECT_EQ(Content(), "[Misc]\nRuns=old\n");
}

TEST_F(StoreThatKeepsNothing, FolderIsReadOnly) {
  fs::permissions(config_ / "Quillbox", fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(InChildAs(kNobody, Probe), kFileMode);
  EXPECT_EQ(Content(), "[Misc]\nRuns=old\n");
}

TEST_F(StoreThatKeepsNothing, FolderCanNotBeMade) {
  fs::remove_all(config_ / "Quillbox");
  fs::permissions(config_, fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(InChildAs(kNobody, Probe), kFileMode);
  fs::permissions(config_, fs::perms::owner_all);
  fs::create_directories(config_ / "Quillbox");
}

TEST_F(StoreThatKeepsNothing, EveryWriteIsRefused) {
  const auto probe = [] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit none{};
    return ::setrlimit(RLIMIT_FSIZE, &none) == 0 ? Probe() : kNoPreparation;
  };
  EXPECT_EQ(InChildAs(kNobody, probe), kFileMode);
  EXPECT_EQ(Content(), "[Misc]\nRuns=old\n");
}

TEST_F(StoreThatKeepsNothing, DiskIsFull) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can mount a small disk";
  const auto probe = [this] {
    if (::unshare(CLONE_NEWNS) != 0 ||
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("tmpfs", config_.c_str(), "tmpfs", 0, "size=32k,uid=65534,mode=700") != 0) {
      return static_cast<int>(kNoPreparation);
    }
    return InChildAs(kNobody, [this] {
      fs::create_directories(config_ / "Quillbox");
      std::ofstream(File()) << "[Misc]\nRuns=old\n";
      std::ofstream(config_ / "filler") << std::string(1 << 20, 'x');
      return Probe();
    });
  };
  const int outcome = InChildAs(0, probe);
  if (outcome == kNoPreparation) GTEST_SKIP() << "no small disk can be mounted here";
  EXPECT_EQ(outcome, kFileMode);
}

}  // namespace
}  // namespace quillbox

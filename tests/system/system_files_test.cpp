// Files, also where no room is left for them, the clock and the environment of the system.
#include "system/system_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <set>

#include "config/atomic_write.h"
#include "system/savers.h"
#include "system/system_surroundings.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

unsigned Mode(const std::string& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 0777U : 0U;
}

class SystemFilesTest : public ::testing::Test {
 protected:
  std::string At(const std::string& name) const { return folder.File(name); }

  TemporaryFolder folder;
  SystemFiles files;
};

TEST_F(SystemFilesTest, WhatIsNoFileOrAnEnormousOneReadsAsNothing) {
  ASSERT_EQ(::mkfifo(At("pipe").c_str(), 0600), 0);
  for (const std::string& path : {At("absent/a"), At("pipe"), std::string("/dev/zero")}) {
    EXPECT_FALSE(files.Exists(path)) << path;
    EXPECT_EQ(files.Size(path), std::nullopt) << path;
    EXPECT_EQ(files.Read(path), std::nullopt) << path;
  }
  folder.Put("enormous", "x");
  ASSERT_EQ(::truncate(At("enormous").c_str(), SystemFiles::kLargestFile + 1), 0);
  EXPECT_EQ(files.Read(At("enormous")), std::nullopt);
}

TEST_F(SystemFilesTest, WritingTakesNoTakenNameAndFollowsNoLink) {
  folder.Put("target", "precious");
  EXPECT_FALSE(files.WriteNew(At("target"), "new"));
  ASSERT_EQ(::symlink(At("target").c_str(), At("link").c_str()), 0);
  ASSERT_EQ(::symlink(At("absent").c_str(), At("dangling").c_str()), 0);
  EXPECT_FALSE(files.WriteNew(At("link"), "new"));
  EXPECT_FALSE(files.WriteNew(At("dangling"), "new"));
  EXPECT_FALSE(std::filesystem::exists(At("absent")));

  EXPECT_TRUE(WriteAtomically(files, At("link"), "new"));
  EXPECT_EQ(folder.Content("target"), "precious");
  EXPECT_EQ(folder.Content("link"), "new");
  EXPECT_FALSE(std::filesystem::is_symlink(At("link")));
}

TEST_F(SystemFilesTest, RemovingALinkKeepsItsTarget) {
  folder.Put("target", "precious");
  ASSERT_EQ(::symlink(At("target").c_str(), At("link").c_str()), 0);
  EXPECT_TRUE(files.Remove(At("link")));
  EXPECT_EQ(folder.Content("target"), "precious");
  EXPECT_TRUE(files.Remove(At("link"))) << "it is not there any more";
  EXPECT_FALSE(files.Remove(folder.Path())) << "a folder";
}

TEST_F(SystemFilesTest, WrittenFilesAreForTheirOwnerAlone) {
  folder.Put("a.ini", "old");
  std::filesystem::permissions(At("a.ini"), std::filesystem::perms(0644));
  const mode_t mask = ::umask(0);
  EXPECT_TRUE(WriteAtomically(files, At("a.ini"), "new"));
  ::umask(mask);
  EXPECT_EQ(Mode(At("a.ini")), 0600U);
  EXPECT_THAT(files.List(folder.Path(), "*"), ElementsAre("a.ini"));
}

TEST_F(SystemFilesTest, ListsLinksToFilesAndNoFolders) {
  folder.Put("ding.wav", "");
  std::filesystem::create_directory(At("folder.wav"));
  ASSERT_EQ(::symlink(At("ding.wav").c_str(), At("link.wav").c_str()), 0);
  EXPECT_THAT(files.List(folder.Path(), "*.wav"), ElementsAre("ding.wav", "link.wav"));
}

const std::string kOld(6000, 'o');

std::set<std::string> FilesIn(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) names.insert(entry.path().lexically_relative(folder).string());
  }
  return names;
}

TEST(FullDisk, AFileThatMayNotGrowLosesNothing) {
  rlimit limit = {};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  for (const Saver& saver : kSavers) {
    SCOPED_TRACE(saver.Name);
    const TemporaryFolder folder;
    EXPECT_TRUE(saver.Save(folder.Path(), kOld));
    const std::string old = folder.Content(saver.File);
    const auto files = FilesIn(folder.Path());
    const rlimit small = {10'000, limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_FALSE(saver.Save(folder.Path(), std::string(20'000, 'n')));  // the first write is short
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    EXPECT_EQ(folder.Content(saver.File), old);
    EXPECT_EQ(FilesIn(folder.Path()), files);
  }
  std::signal(SIGXFSZ, handler);
}

TEST(SystemClock, LocalTimeFollowsTheTimeZone) {
  struct Case {
    const char* Zone;
    std::chrono::seconds East;
  };
  const Case kCases[] = {
      {"UTC0", 0h}, {"EAST-5:30", 5h + 30min}, {"WEST11", -11h}, {"FAR-14", 14h}};
  SystemClock clock;
  for (const Case& c : kCases) {
    ::setenv("TZ", c.Zone, 1);
    const auto now = [] {
      return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    };
    const auto before = now().time_since_epoch();
    const auto local = clock.LocalTime().time_since_epoch();
    const auto after = now().time_since_epoch();
    EXPECT_GE(local - c.East, before) << c.Zone;
    EXPECT_LE(local - c.East, after) << c.Zone;
  }
  ::unsetenv("TZ");
}

TEST(SystemEnvironment, TheVeryNameComesFirst) {
  for (const char* const name : {"Username", "USERNAME", "username"}) ::unsetenv(name);
  SystemEnvironment environment;
  ::setenv("USERNAME", "ann", 1);
  EXPECT_EQ(environment.Variable("Username"), "ann");
  ::setenv("Username", "bob", 1);
  EXPECT_EQ(environment.Variable("Username"), "bob");
  ::setenv("Username", "\xE9", 1);
  EXPECT_EQ(environment.Variable("Username"), "") << "no UTF-8";
}

}  // namespace
}  // namespace quillbox

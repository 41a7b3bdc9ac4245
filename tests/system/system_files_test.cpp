#include "system/system_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "config/atomic_write.h"
#include "support/ordinary_user.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

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

TEST_F(SystemFilesTest, AFolderThatIsReadOnlyStaysAsItWas) {
  const OrdinaryUser user({folder.Path()});
  ASSERT_TRUE(files.WriteNew(At("a.ini"), "old"));
  std::filesystem::permissions(folder.Path(), std::filesystem::perms(0500));
  EXPECT_FALSE(WriteAtomically(files, At("a.ini"), "new"));
  EXPECT_FALSE(files.Remove(At("a.ini")));
  std::filesystem::permissions(folder.Path(), std::filesystem::perms(0700));
  EXPECT_EQ(folder.Content("a.ini"), "old");
  EXPECT_THAT(files.List(folder.Path(), "*"), ElementsAre("a.ini"));
}

TEST_F(SystemFilesTest, ListsLinksToFilesAndNoFolders) {
  folder.Put("ding.wav", "");
  std::filesystem::create_directory(At("folder.wav"));
  ASSERT_EQ(::symlink(At("ding.wav").c_str(), At("link.wav").c_str()), 0);
  EXPECT_THAT(files.List(folder.Path(), "*.wav"), ElementsAre("ding.wav", "link.wav"));
}

}  // namespace
}  // namespace quillbox

#include "system/system_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "config/atomic_write.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

unsigned Mode(const std::string& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 0777U : 0U;
}

// Ordinary rights while it lives: root may write everything.
class OrdinaryUser {
 public:
  explicit OrdinaryUser(const std::string& folder) : wasRoot_(::geteuid() == 0) {
    constexpr unsigned kNobody = 65534;
    if (wasRoot_ && (::chown(folder.c_str(), kNobody, kNobody) != 0 || ::seteuid(kNobody) != 0)) {
      ADD_FAILURE() << "can't become an ordinary user";
    }
  }
  ~OrdinaryUser() {
    if (wasRoot_ && ::seteuid(0) != 0) ADD_FAILURE() << "can't become root again";
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  const bool wasRoot_;
};

class SystemFilesTest : public ::testing::Test {
 protected:
  std::string At(const std::string& name) const { return folder.File(name); }

  TemporaryFolder folder;
  SystemFiles files;
};

TEST_F(SystemFilesTest, WritesAndReadsBack) {
  std::string content;
  for (int i = 0; i < 300'000; ++i) content += static_cast<char>(i);
  EXPECT_TRUE(files.WriteNew(At("a"), content));
  EXPECT_TRUE(files.Flush(At("a")));
  EXPECT_TRUE(files.Flush(folder.Path()));
  EXPECT_EQ(folder.Content("a"), content);
  EXPECT_EQ(files.Read(At("a")), content);
  EXPECT_EQ(files.Size(At("a")), content.size());
  EXPECT_TRUE(files.Exists(At("a")));

  EXPECT_TRUE(files.WriteNew(At("empty"), ""));
  EXPECT_EQ(files.Read(At("empty")), "");
}

TEST_F(SystemFilesTest, WhatIsNoFileOrAnEnormousOneReadsAsNothing) {
  ASSERT_EQ(::mkfifo(At("pipe").c_str(), 0600), 0);
  for (const std::string& path : {At("absent"), At("absent/a"), folder.Path(), At("pipe"),
                                  std::string("/dev/zero"), std::string()}) {
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

TEST_F(SystemFilesTest, RenamesOverAFileButNotOverAFolder) {
  folder.Put("a", "new");
  folder.Put("b", "old");
  EXPECT_TRUE(files.Rename(At("a"), At("b")));
  EXPECT_EQ(folder.Content("b"), "new");
  EXPECT_FALSE(files.Exists(At("a")));

  std::filesystem::create_directory(At("folder"));
  EXPECT_FALSE(files.Rename(At("b"), At("folder")));
  EXPECT_FALSE(files.Rename(At("absent"), At("b")));
  EXPECT_EQ(folder.Content("b"), "new");
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

TEST_F(SystemFilesTest, WhatIsReadOnlyStaysAsItWas) {
  const OrdinaryUser user(folder.Path());
  ASSERT_TRUE(files.WriteNew(At("a.ini"), "old"));
  std::filesystem::permissions(At("a.ini"), std::filesystem::perms(0400));
  EXPECT_FALSE(WriteAtomically(files, At("a.ini"), "new"));
  std::filesystem::permissions(folder.Path(), std::filesystem::perms(0500));
  EXPECT_FALSE(WriteAtomically(files, At("a.ini"), "new"));
  EXPECT_FALSE(files.Remove(At("a.ini")));
  std::filesystem::permissions(folder.Path(), std::filesystem::perms(0700));
  EXPECT_EQ(folder.Content("a.ini"), "old");
  EXPECT_THAT(files.List(folder.Path(), "*"), ElementsAre("a.ini"));
}

TEST_F(SystemFilesTest, ListsFilesByPattern) {
  for (const char* name :
       {"ding.wav", "DONG.WAV", "a.wave", "\xC3\x89t\xC3\xA9.wav", "\xD0\xB4.wav", "b.WaV"}) {
    folder.Put(name, "");
  }
  std::filesystem::create_directory(At("folder.wav"));
  ASSERT_EQ(::symlink(At("ding.wav").c_str(), At("link.wav").c_str()), 0);

  EXPECT_THAT(files.List(folder.Path(), "*.wav"),
              ElementsAre("DONG.WAV", "b.WaV", "ding.wav", "link.wav", "\xC3\x89t\xC3\xA9.wav",
                          "\xD0\xB4.wav"));
  EXPECT_THAT(files.List(folder.Path(), "?.wav"), ElementsAre("b.WaV"));
  EXPECT_THAT(files.List(folder.Path(), "\xC3\xA9?\xC3\x89.*"),
              ElementsAre("\xC3\x89t\xC3\xA9.wav"));
  EXPECT_THAT(files.List(At("absent"), "*"), IsEmpty());
}

}  // namespace
}  // namespace quillbox

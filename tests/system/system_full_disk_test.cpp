// Writing where no room is left: a small disk of its own when the test may make one, and a limit on
// the size of files for everybody.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include <csignal>

#include "config/atomic_write.h"
#include "system/system_files.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

using ::testing::ElementsAre;

// The old content stays, and nothing half written beside it.
void ExpectNoRoom(const TemporaryFolder& folder, std::size_t tooMuch) {
  SystemFiles files;
  ASSERT_TRUE(WriteAtomically(files, folder.File("a.ini"), "old"));
  EXPECT_FALSE(files.WriteNew(folder.File("new"), std::string(tooMuch, 'x')));
  EXPECT_FALSE(WriteAtomically(files, folder.File("a.ini"), std::string(tooMuch, 'x')));
  EXPECT_EQ(folder.Content("a.ini"), "old");
  EXPECT_THAT(files.List(folder.Path(), "*"), ElementsAre("a.ini"));
  EXPECT_TRUE(WriteAtomically(files, folder.File("a.ini"), "small"));
}

TEST(FullDisk, AFullFileSystemLosesNothing) {
  const TemporaryFolder folder;
  if (::mount("tmpfs", folder.Path().c_str(), "tmpfs", 0, "size=64k,mode=700") != 0) {
    GTEST_SKIP() << "needs the right to mount a small disk";
  }
  ExpectNoRoom(folder, 256U << 10U);
  EXPECT_EQ(::umount(folder.Path().c_str()), 0);
}

TEST(FullDisk, AFileThatMayNotGrowLosesNothing) {
  const TemporaryFolder folder;
  rlimit limit = {};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlimit small = {10'000, limit.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  ExpectNoRoom(folder, 20'000);  // its first write is a short one
  EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  std::signal(SIGXFSZ, handler);
}

}  // namespace
}  // namespace quillbox

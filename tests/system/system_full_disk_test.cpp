// Saving where no room is left: a small disk of its own when the test may make one, and a limit on
// the size of files for everybody.
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/statvfs.h>

#include <csignal>
#include <set>

#include "system/savers.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

const std::string kOld(6000, 'o');

std::set<std::string> FilesIn(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) names.insert(entry.path().lexically_relative(folder).string());
  }
  return names;
}

// Old or new, whole, and as the save says; nothing half written beside it.
void ExpectWhole(const Saver& saver, const TemporaryFolder& folder, const std::string& text) {
  const std::string old = folder.Content(saver.File);
  const std::set<std::string> files = FilesIn(folder.Path());
  const bool saved = saver.Save(folder.Path(), text);
  const std::string now = folder.Content(saver.File);
  const TemporaryFolder elsewhere;
  EXPECT_TRUE(saver.Save(elsewhere.Path(), text));
  EXPECT_EQ(now, saved ? elsewhere.Content(saver.File) : old);
  EXPECT_EQ(FilesIn(folder.Path()), files);
}

// Leaves that many pages.
void Fill(const TemporaryFolder& folder, unsigned long pages) {
  struct statvfs disk {};
  ASSERT_EQ(::statvfs(folder.Path().c_str(), &disk), 0);
  folder.Put("filler", std::string((disk.f_bavail - pages) * disk.f_bsize, 'x'));
  ASSERT_EQ(::statvfs(folder.Path().c_str(), &disk), 0);
  ASSERT_EQ(disk.f_bavail, pages);
}

TEST(FullDisk, TheLastPagesOfAFileSystemHoldTheOldOrTheNewFile) {
  int saves = 0, kept = 0;
  for (const Saver& saver : kSavers) {
    for (unsigned long pages = 0; pages <= 8; ++pages) {
      SCOPED_TRACE(testing::Message() << saver.Name << ", " << pages << " pages");
      const TemporaryFolder folder;
      if (::mount("tmpfs", folder.Path().c_str(), "tmpfs", 0, "size=256k,mode=700") != 0) {
        GTEST_SKIP() << "needs the right to mount a small disk";
      }
      EXPECT_TRUE(saver.Save(folder.Path(), kOld));
      Fill(folder, pages);
      const std::string old = folder.Content(saver.File);
      for (const std::size_t length : {10U, 3000U, 6000U, 14'000U}) {
        ExpectWhole(saver, folder, std::string(length, 'n'));
        ++saves;
        if (folder.Content(saver.File) != old) ++kept;
      }
      EXPECT_EQ(::umount(folder.Path().c_str()), 0);
    }
  }
  EXPECT_TRUE(kept > 0 && kept < saves) << kept << " of " << saves;
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

}  // namespace
}  // namespace quillbox

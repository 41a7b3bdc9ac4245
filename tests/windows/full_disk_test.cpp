// Saves on a disk that is full: scripts/test-windows makes one and names it in QUILLBOX_FULL_DISK.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <iterator>

#include "config/atomic_write.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

TEST(FullDisk, ASaveFailsAndLeavesTheOldFileAlone) {
  const char* const disk = std::getenv("QUILLBOX_FULL_DISK");
  if (disk == nullptr) GTEST_SKIP() << "only root can make one";
  SystemFiles files;
  const std::string path = std::string(disk) + "\\a.ini";
  ASSERT_EQ(files.Read(path), "[old]\n") << "what the script has put there";
  for (const std::size_t size : {std::size_t{1} << 10, std::size_t{1} << 20}) {
    EXPECT_FALSE(WriteAtomically(files, path, std::string(size, 'x'))) << size;
    EXPECT_EQ(files.Read(path), "[old]\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(disk), {}), 2)
        << "and what fills it";
  }
}

}  // namespace
}  // namespace quillbox

// A disk without room for the data still takes the code; one without any room takes nothing.
#include <gtest/gtest.h>

#include <sys/mount.h>

#include "dl/support/demo_service.h"
#include "dl/support/dl_run.h"

namespace quillbox {
namespace {

constexpr std::size_t kPage = 4096;

class SmallDisk {
 public:
  // Three pages, `taken` of them full.
  SmallDisk(const std::string& folder, std::size_t taken) : folder_(folder) {
    mounted_ = ::mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=12k") == 0;
    if (mounted_) WriteWhole(folder + "/filling", std::string(taken * kPage, 'x'));
  }
  ~SmallDisk() {
    if (mounted_) ::umount2(folder_.c_str(), MNT_DETACH);
  }
  bool Mounted() const { return mounted_; }

 private:
  std::string folder_;
  bool mounted_ = false;
};

class FullDisk : public testing::Test {
 protected:
  int Fetch() const {
    return run_.Run({service_.Address("/versionqb.txt"), service_.AuthorityFile()});
  }

  DlRun run_;
  DemoService service_{{"--version-text", std::string(2 * kPage, 'v')}};
};

TEST_F(FullDisk, TheLogSaysNoAnswer) {
  const SmallDisk disk(run_.FolderPath(), 2);
  if (!disk.Mounted()) GTEST_SKIP() << "only root can make a small disk";
  EXPECT_EQ(Fetch(), 0);
  EXPECT_EQ(run_.Log(), "2");
  EXPECT_FALSE(run_.Data());
}

TEST_F(FullDisk, DataThatLeaveNoRoomForTheLogGo) {
  const SmallDisk disk(run_.FolderPath(), 1);
  if (!disk.Mounted()) GTEST_SKIP() << "only root can make a small disk";
  EXPECT_EQ(Fetch(), 0);
  EXPECT_EQ(run_.Log(), "2");
  EXPECT_FALSE(run_.Data());
}

TEST_F(FullDisk, WithoutRoomForTheLogNothingIsLeft) {
  const SmallDisk disk(run_.FolderPath(), 3);
  if (!disk.Mounted()) GTEST_SKIP() << "only root can make a small disk";
  EXPECT_NE(Fetch(), 0);
  EXPECT_FALSE(run_.Log());
  EXPECT_FALSE(run_.Data());
}

}  // namespace
}  // namespace quillbox

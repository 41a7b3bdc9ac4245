#include "config/atomic_write.h"

#include <gmock/gmock.h>

#include "simulated/simulated_files.h"

namespace quillbox {
namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::Pair;

constexpr const char* kPath = "/data/a.ini";
constexpr int kSteps = 4;  // write, flush, rename, flush the folder

// Every step works but one kind.
class FailingFiles : public SimulatedFiles {
 public:
  enum class Step { kFlush, kRename };
  explicit FailingFiles(Step failing) : SimulatedFiles({{kPath, "old"}}), failing_(failing) {}

  bool Flush(const std::string& path) override {
    return failing_ != Step::kFlush && SimulatedFiles::Flush(path);
  }
  bool Rename(const std::string& from, const std::string& to) override {
    return failing_ != Step::kRename && SimulatedFiles::Rename(from, to);
  }

 private:
  Step failing_;
};

TEST(AtomicWrite, OutlivesAPowerFailureWhollyOrNotAtAll) {
  for (int step = 0; step <= kSteps; ++step) {
    for (std::uint64_t seed = 0; seed < 100; ++seed) {
      SimulatedFiles files({{kPath, "old"}}, seed);
      files.LosePowerAtStep(step);
      WriteAtomically(files, kPath, "new text");
      files.PowerBack();
      const char* const atWorst = step < kSteps ? "old" : "new text";  // it went after the write
      EXPECT_THAT(files.Read(kPath), AnyOf("new text", atWorst)) << step << ", seed " << seed;
    }
  }
}

TEST(AtomicWrite, AFailedStepLeavesTheOldFileAlone) {
  for (const auto step : {FailingFiles::Step::kFlush, FailingFiles::Step::kRename}) {
    FailingFiles files(step);
    EXPECT_FALSE(WriteAtomically(files, kPath, "new text"));
    EXPECT_THAT(files.All(), ElementsAre(Pair(kPath, "old"))) << static_cast<int>(step);
  }
  SimulatedFiles full({{kPath, "old"}});
  full.SetDisk(DiskState::kFull);
  EXPECT_FALSE(WriteAtomically(full, kPath, "new text"));
  EXPECT_THAT(full.All(), ElementsAre(Pair(kPath, "old")));
}

TEST(AtomicWrite, WhatKilledWritersLeftGoes) {
  SimulatedFiles files({{kPath, "old"}});
  for (const char* suffix : {".new1", ".new2", ".new3", ".new4"}) {
    files.Put(kPath + std::string(suffix), "torn");
  }
  EXPECT_TRUE(WriteAtomically(files, kPath, "new text"));
  EXPECT_THAT(files.All(), ElementsAre(Pair(kPath, "new text")));
}

}  // namespace
}  // namespace quillbox

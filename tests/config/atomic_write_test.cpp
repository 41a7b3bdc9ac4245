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

// Passes all on, but for one kind of step.
class FailingFiles : public Files {
 public:
  enum class Step { kFlush, kRename };
  FailingFiles(Files& files, Step failing) : files_(files), failing_(failing) {}

  bool Exists(const std::string& path) override { return files_.Exists(path); }
  std::optional<std::uint64_t> Size(const std::string& path) override { return files_.Size(path); }
  std::optional<std::string> Read(const std::string& path) override { return files_.Read(path); }
  bool WriteNew(const std::string& path, const std::string& content) override {
    return files_.WriteNew(path, content);
  }
  bool Flush(const std::string& path) override {
    return failing_ != Step::kFlush && files_.Flush(path);
  }
  bool Rename(const std::string& from, const std::string& to) override {
    return failing_ != Step::kRename && files_.Rename(from, to);
  }
  bool Remove(const std::string& path) override { return files_.Remove(path); }
  std::vector<std::string> List(const std::string& folder, const std::string& pattern) override {
    return files_.List(folder, pattern);
  }

 private:
  Files& files_;
  Step failing_;
};

TEST(AtomicWrite, ReplacesAndLeavesNothingElse) {
  SimulatedFiles files({{kPath, "old"}});
  EXPECT_TRUE(WriteAtomically(files, kPath, "new text"));
  EXPECT_EQ(files.Steps(), kSteps);
  EXPECT_THAT(files.All(), ElementsAre(Pair(kPath, "new text")));
}

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
    SimulatedFiles disk({{kPath, "old"}});
    FailingFiles files(disk, step);
    EXPECT_FALSE(WriteAtomically(files, kPath, "new text"));
    EXPECT_THAT(disk.All(), ElementsAre(Pair(kPath, "old"))) << static_cast<int>(step);
  }
  SimulatedFiles full({{kPath, "old"}});
  full.SetDisk(DiskState::kFull);
  EXPECT_FALSE(WriteAtomically(full, kPath, "new text"));
  EXPECT_THAT(full.All(), ElementsAre(Pair(kPath, "old")));
}

TEST(AtomicWrite, LeftoversOfKilledWritersNeverStopIt) {
  SimulatedFiles files({{kPath, "old"}});
  for (const char* suffix : {".new1", ".new2", ".new3", ".new4"}) {
    files.Put(kPath + std::string(suffix), "torn");
    EXPECT_TRUE(WriteAtomically(files, kPath, suffix));
    EXPECT_EQ(files.Read(kPath), suffix);
  }
}

}  // namespace
}  // namespace quillbox

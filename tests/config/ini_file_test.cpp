#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/profile_file.h"
#include "simulated/simulated_files.h"

namespace quillbox {
namespace {

using ::testing::AnyOf;
using ::testing::IsEmpty;

constexpr const char* kPath = "/data/ann.ini";

TEST(IniFile, ReadsNothingFromNoFile) {
  SimulatedFiles files;
  EXPECT_EQ(IniRead(files, "S", "K", kPath), "");
}

TEST(IniFile, ReadsAtMost749Characters) {
  SimulatedFiles files;
  for (const std::size_t length : {748U, 749U, 750U, 5000U}) {
    const std::string value(length, 'x');
    IniWrite(files, std::vector<SettingChange>{{"S", "K", value}}, kPath);
    EXPECT_EQ(IniRead(files, "S", "K", kPath), value.substr(0, 749)) << length;
    EXPECT_EQ(files.Read(kPath), "[S]\r\nK=" + value + "\r\n") << "the file holds all of it";
  }
}

TEST(IniFile, ADeletedKeyKeepsItsLine) {
  SimulatedFiles files({{kPath, "[S]\r\nK=v\r\n"}});
  IniWrite(files, std::vector<SettingChange>{{"S", "k", {}}, {"S", "Other", {}}}, kPath);
  EXPECT_EQ(files.Read(kPath), "[S]\r\nK=\r\nOTHER=\r\n");
  EXPECT_EQ(IniRead(files, "S", "K", kPath), "");
}

TEST(IniFile, ABatchIsOneAtomicWrite) {
  const std::vector<SettingChange> changes = {{"S", "A", "2"}, {"S", "B", "2"}, {"T", "C", "2"}};
  const std::string before = "[S]\nA=1\nB=1\n[T]\nC=1\n";
  const std::string after = "[S]\nA=2\nB=2\n[T]\nC=2\n";
  SimulatedFiles counting({{kPath, before}});
  IniWrite(counting, changes, kPath);
  EXPECT_EQ(counting.Read(kPath), after);

  for (int step = 0; step < counting.Steps(); ++step) {
    for (std::uint64_t seed = 0; seed < 100; ++seed) {
      SimulatedFiles files({{kPath, before}}, seed);
      files.LosePowerAtStep(step);
      IniWrite(files, changes, kPath);
      files.PowerBack();
      EXPECT_THAT(files.Read(kPath), AnyOf(before, after)) << step << ", seed " << seed;
    }
  }
}

TEST(IniFile, AFileThatCannotBeReadIsNotReplaced) {
  SimulatedFiles files({{kPath, "[S]\nPRECIOUS=1\n"}});
  files.SetReadable(kPath, false);
  IniWrite(files, std::vector<SettingChange>{{"S", "K", "v"}}, kPath);
  files.SetReadable(kPath, true);
  EXPECT_EQ(files.Read(kPath), "[S]\nPRECIOUS=1\n");
}

TEST(IniFile, ChangesThatNoLineCanCarryMakeNoFile) {
  SimulatedFiles files;
  IniWrite(files, std::vector<SettingChange>{{"S", "a=b", "v"}}, kPath);
  EXPECT_THAT(files.All(), IsEmpty());
}

}  // namespace
}  // namespace quillbox

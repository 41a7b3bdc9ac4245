// One program a user: who passes the gate, who hears of later starts, and where the gate stands.
#include <QByteArray>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <future>
#include <map>
#include <thread>

#include "support/child_process.h"
#include "support/rounds.h"
#include "system/instance_gate.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::Pair;
namespace fs = std::filesystem;

enum Start { kHeardAll, kWasHeard, kFailed };

Start PassOrKnock(const std::string& folder, int others) {
  InstanceGate& gate = *new InstanceGate(folder);  // never closed, as when the process is killed
  if (!gate.Pass()) return gate.Knock(10s) ? kWasHeard : kFailed;
  int heard = 0;
  for (int tries = 0; tries < 1000 && heard < others; ++tries) {
    heard += gate.AnswerKnocks();
    std::this_thread::sleep_for(10ms);
  }
  return heard == others ? kHeardAll : kFailed;
}

TEST(InstanceGate, OfThirtyStartsOnePassesAndHearsTheOthers) {
  constexpr int kStarts = 30;
  const TemporaryFolder folder;
  for (int round = 0; round < Rounds(); ++round) {
    // What the one has left does not stop the next one.
    const auto start = [&] {
      return InChildAs(::geteuid(), [&] { return PassOrKnock(folder.Path(), kStarts - 1); });
    };
    std::vector<std::future<int>> starts;
    for (int i = 0; i < kStarts; ++i) starts.push_back(std::async(std::launch::async, start));
    std::map<int, int> found;
    for (std::future<int>& one : starts) ++found[one.get()];
    ASSERT_THAT(found, ElementsAre(Pair(kHeardAll, 1), Pair(kWasHeard, kStarts - 1))) << round;
  }
}

TEST(InstanceGate, IsDeafToOtherUsers) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can be another user";
  const TemporaryFolder folder;
  InstanceGate gate(folder.Path());
  ASSERT_TRUE(gate.Pass());
  fs::permissions(folder.Path(), fs::perms::all);
  fs::permissions(folder.File("quillbox.socket"), fs::perms::all);
  EXPECT_EQ(InChildAs(kNobody, [&] { return InstanceGate(folder.Path()).Knock(50ms) ? 1 : 0; }), 0);
  EXPECT_EQ(gate.AnswerKnocks(), 0);
}

// RuntimeFolder as a process has it that is told this runtime folder.
fs::path RuntimeFolderTold(const fs::path& told) {
  const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
  qputenv("XDG_RUNTIME_DIR", told.c_str());
  const fs::path found = RuntimeFolder(InstanceGate::kLongestFolder);
  qputenv("XDG_RUNTIME_DIR", before);
  return found;
}

TEST(RuntimeFolder, IsNeverOneThatOthersCanWrite) {
  const TemporaryFolder temporary;
  const fs::path folder = temporary.File("ours");
  EXPECT_NE(RuntimeFolderTold(folder), folder) << "it is not there";
  fs::create_directories(folder);
  fs::permissions(folder, fs::perms::owner_all);
  EXPECT_EQ(RuntimeFolderTold(folder), folder);
  fs::permissions(folder, fs::perms::all);
  const fs::path other = RuntimeFolderTold(folder);
  EXPECT_NE(other, folder);
  EXPECT_TRUE(other.is_absolute());
  EXPECT_EQ(fs::status(other).permissions() & (fs::perms::group_write | fs::perms::others_write),
            fs::perms::none);
  if (::geteuid() != 0) return;
  fs::permissions(folder, fs::perms::owner_all);
  ASSERT_EQ(::chown(folder.c_str(), kNobody, kNobody), 0);
  EXPECT_NE(RuntimeFolderTold(folder), folder) << "it is another user's";
}

}  // namespace
}  // namespace quillbox

// Runs at once with one grant, of a service that puts a new one in its place at each refresh.
#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "dl/support/grants.h"
#include "support/rounds.h"

namespace quillbox {
namespace {

using testing::HasSubstr;
using testing::Not;

// In the folder of the grants, without the one on which Windows keeps its locks.
std::ptrdiff_t Files(const GrantHome& home) {
  const std::filesystem::path folder = std::filesystem::path(home.GrantPath()).parent_path();
  return std::distance(std::filesystem::directory_iterator(folder), {}) -
         std::filesystem::exists(folder / "locks");
}

class GrantTurns : public testing::Test {
 protected:
  // A grant that is used twice takes all others along.
  DemoService service_{{"--refresh", "rotate-once"}};
  const GrantHome home_;
};

TEST_F(GrantTurns, ComeToEveryRunAndTheFileHoldsTheLastGrant) {
  const std::array<DlRun, 8> runs;
  {
    std::vector<std::unique_ptr<ChildProcess>> processes;
    for (const DlRun& run : runs) {
      processes.push_back(std::make_unique<ChildProcess>(run.Start(Granted(service_, home_))));
    }
    for (const auto& process : processes) EXPECT_EQ(process->Wait(), 0);
  }
  for (const DlRun& run : runs) EXPECT_EQ(run.Log(), "0");
  EXPECT_THAT(ReadWhole(home_.GrantPath()).value_or(""), Not(HasSubstr(kRefreshToken)));
  EXPECT_EQ(runs[0].CodeOf(Granted(service_, home_)), "0");
  EXPECT_EQ(Files(home_), 1);
}

TEST_F(GrantTurns, AreNotWaitedForWithoutEnd) {
  if (InWine()) GTEST_SKIP() << kLocksOfItsOwn;
  const DlRun run;
  DlStart start = Granted(service_, home_);
  // As a run that was stopped in its exchange.
  const int held = ::open(home_.GrantPath().c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(::flock(held, LOCK_EX), 0);
  start.Limits = "500,500,1000";
  EXPECT_EQ(run.CodeOf(start), "2");
  EXPECT_THAT(ReadWhole(home_.GrantPath()).value_or(""), HasSubstr(kRefreshToken));
  ::close(held);
  EXPECT_EQ(run.CodeOf(Granted(service_, home_)), "0");
  service_.Process().End();
  EXPECT_EQ(service_.Process().ReadLine(), "POST /token");
  EXPECT_THAT(service_.Process().ReadAll(), Not(HasSubstr("/token"))) << "asked only once";
}

TEST_F(GrantTurns, NeedRoomForTheNewGrantBeforeTheOldOneIsUsedUp) {
  const DlRun run;
  ChildStart start = run.Start(Granted(service_, home_));
  // A disk that takes 8 KiB in a file and no more.
  const std::vector<std::string> full{"/bin/sh", "-c", "trap '' XFSZ; ulimit -f 16; exec \"$@\"",
                                      "sh"};
  start.Arguments.insert(start.Arguments.begin(), full.begin(), full.end());
  ChildProcess(start).Wait();
  EXPECT_EQ(run.Log(), "1");
  EXPECT_EQ(Files(home_), 1);
  EXPECT_EQ(run.CodeOf(Granted(service_, home_)), "0");
  service_.Process().End();
  EXPECT_EQ(service_.Process().ReadLine(), "POST /token");
  EXPECT_THAT(service_.Process().ReadAll(), Not(HasSubstr("/token"))) << "the full disk asked too";
}

// Killed at any moment from the question on: what is lost is at most the answer on its way.
TEST(GrantTurn, ThatIsKilledLeavesOneWholeGrant) {
  for (int round = 0; round < Rounds(); ++round) {
    DemoService service({"--refresh", "rotate-once"});
    const GrantHome home;
    const DlRun run;
    {
      ChildProcess killed(run.Start(Granted(service, home)));
      ASSERT_EQ(service.Process().ReadLine(), "POST /token");
      ::usleep(static_cast<useconds_t>(round * 1700 % 20'000));
      ::kill(killed.Id(), SIGKILL);
      killed.Wait();
    }
    const std::string left = ReadWhole(home.GrantPath()).value_or("");
    EXPECT_THAT(left,
                testing::AllOf(HasSubstr("\"refresh_token\""), testing::ContainsRegex("}\n?$")));
    const bool lost = left.find(kRefreshToken) != std::string::npos;
    EXPECT_EQ(run.CodeOf(Granted(service, home)), lost ? "3" : "0") << "round " << round;
    EXPECT_EQ(Files(home), 1) << "round " << round;
  }
}

}  // namespace
}  // namespace quillbox

// Runs at once with one grant, of a service that puts a new one in its place at each refresh.
#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>

#include "dl/support/grants.h"

namespace quillbox {
namespace {

using testing::HasSubstr;
using testing::Not;

class GrantTurns : public testing::Test {
 protected:
  DemoService service_{{"--refresh", "rotate"}};
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
  const std::filesystem::path folder = std::filesystem::path(home_.GrantPath()).parent_path();
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST_F(GrantTurns, AreNotWaitedForWithoutEnd) {
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

}  // namespace
}  // namespace quillbox

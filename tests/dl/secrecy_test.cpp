// Nothing that others on the machine can read holds the request.
#include <gmock/gmock.h>

#include <sys/stat.h>
#include <unistd.h>

#include "dl/support/demo_service.h"

namespace quillbox {
namespace {

using testing::HasSubstr;
using testing::Not;

// In the middle of a sign-in that the service never answers.
TEST(Secrecy, TheProcessShowsNothingToOthers) {
  if (InWine()) GTEST_SKIP() << "what the system shows here is Wine's command line";
  DemoService service({"--fail", "stall"});
  const DlRun run;
  const ChildProcess dl(run.Start(service.Signed()));
  ASSERT_EQ(service.Process().ReadLine(), "POST /accounts/ServiceLoginAuth");
  const std::string proc = "/proc/" + std::to_string(dl.Id());
  const std::string commandLine = ReadWhole(proc + "/cmdline").value_or("");
  ASSERT_THAT(commandLine, HasSubstr("dl"));
  for (const char* word : {kPassword, "Email", "Some.dat"}) {
    EXPECT_THAT(commandLine, Not(HasSubstr(word)));
  }
  EXPECT_THAT(ReadWhole(proc + "/limits").value_or(""),
              testing::ContainsRegex("Max core file size +0 +0 "));
  if (::geteuid() == 0) return;  // to root all memory is open
  struct stat status {};
  ASSERT_EQ(::stat((proc + "/environ").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 0U) << "the memory is open to the user's other processes";
}

TEST(Secrecy, MessagesHoldNothingOfTheRequest) {
  const DlRun run;
  ChildStart start = run.Start({});
  start.Arguments[1] = "Email=%61&Passwd=rosemary%#%https://localhost/secret";
  ChildProcess dl(start);
  EXPECT_EQ(dl.ReadAll(), "dl: expected one argument: REQUEST|DATA FILE|LOG FILE\n");
  EXPECT_NE(dl.Wait(), 0);
}

}  // namespace
}  // namespace quillbox

// Nothing that others on the machine can read holds the request.
#include <gmock/gmock.h>

#include <sys/stat.h>
#include <unistd.h>

#include "dl/support/demo_service.h"
#include "dl/support/dl_run.h"
#include "text/form_encoding.h"

namespace quillbox {
namespace {

using testing::HasSubstr;
using testing::Not;

// The fetch program in the middle of a sign-in that the service never answers.
class Secrecy : public testing::Test {
 protected:
  Secrecy()
      : dl_(run_.Start({SignedIn(kEmail, kPassword, service_.Address(kContentReport)),
                        service_.AuthorityFile()})) {
    EXPECT_EQ(service_.Process().ReadLine(), "POST /accounts/ServiceLoginAuth");
  }

  std::string Proc(const std::string& name) const {
    return "/proc/" + std::to_string(dl_.Id()) + "/" + name;
  }

  DlRun run_;
  DemoService service_{{"--fail", "stall"}};
  ChildProcess dl_;
};

TEST_F(Secrecy, TheProcessListShowsNoArgument) {
  const std::string commandLine = ReadWhole(Proc("cmdline")).value_or("");
  ASSERT_THAT(commandLine, HasSubstr("dl"));
  EXPECT_THAT(commandLine, Not(HasSubstr(EncodeFormValue(kPassword))));
  EXPECT_THAT(commandLine, Not(HasSubstr("Email")));
  EXPECT_THAT(commandLine, Not(HasSubstr("Some.dat")));
}

TEST_F(Secrecy, NoCoreFileIsLeft) {
  EXPECT_THAT(ReadWhole(Proc("limits")).value_or(""),
              testing::ContainsRegex("Max core file size +0 +0 "));
}

TEST_F(Secrecy, TheMemoryIsNotOpenToTheUsersOtherProcesses) {
  if (::geteuid() == 0) GTEST_SKIP() << "to root all processes are open";
  struct stat status {};
  ASSERT_EQ(::stat(Proc("environ").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 0U);
}

TEST(Messages, HoldNothingOfTheRequest) {
  const DlRun run;
  ChildStart start = run.Start({});
  start.Arguments[1] = "Email=%61&Passwd=rosemary%#%https://localhost/secret";
  ChildProcess dl(start);
  const std::string said = dl.ReadLine();
  EXPECT_EQ(said, "dl: expected one argument: REQUEST|DATA FILE|LOG FILE");
  EXPECT_EQ(dl.ReadLine(), "");
  EXPECT_NE(dl.Wait(), 0);
}

}  // namespace
}  // namespace quillbox

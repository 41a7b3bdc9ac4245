// Passwords of every kind reach the service as they are.
#include <gtest/gtest.h>

#include "dl/support/demo_service.h"
#include "dl/support/dl_run.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

const char* const kPasswords[] = {"a|b|c",
                                  "x%#%y",
                                  "%",
                                  "%#",
                                  "#%",
                                  "100%",
                                  "%41",
                                  "a&b=c+",
                                  " a b ",
                                  "&Passwd=",
                                  "\xE4\xF6\xFC\xDF",
                                  "\x80uro",
                                  "\"quoted\"",
                                  "back\\slash"};

TEST(Passwords, ArriveInUtf8AndWhole) {
  std::vector<std::string> options;
  int number = 0;
  for (const std::string password : kPasswords) {
    options.push_back("--account");
    options.push_back(std::to_string(number++) + "\xC3\xBC@example.test:" + ToUtf8(password));
  }
  const DemoService service(options);
  number = 0;
  for (const std::string password : kPasswords) {
    const std::string email = std::to_string(number++) + "\xFC@example.test";
    const DlRun run;
    run.Run({SignedIn(email, password, service.Address(kContentReport)), service.AuthorityFile()});
    EXPECT_EQ(run.Log(), "0") << ToUtf8(password);
    run.Run({SignedIn(email, password + "!", service.Address(kContentReport)),
             service.AuthorityFile()});
    EXPECT_EQ(run.Log(), "3") << ToUtf8(password) << " with one character more";
  }
}

TEST(Passwords, TheTextMayComeInSeveralArguments) {
  const DemoService service;
  const DlRun run;
  ChildStart start = run.Start({service.Address("/versionqb.txt"), service.AuthorityFile()});
  const std::string spaced = run.FolderPath() + "/a  b";
  start.Arguments = {start.Arguments[0],
                     service.Address("/versionqb.txt") + "|" + spaced.substr(0, spaced.size() - 2),
                     "b.dat|" + run.LogPath()};
  ChildProcess(start).Wait();
  EXPECT_EQ(run.Log(), "0");
  EXPECT_EQ(ReadWhole(run.FolderPath() + "/a  b.dat"), "1.3.0");
}

}  // namespace
}  // namespace quillbox

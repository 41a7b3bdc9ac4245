// Passwords of every kind reach the service as they are.
#include <gtest/gtest.h>

#include "dl/support/demo_service.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

TEST(Passwords, ArriveInUtf8AndWhole) {
  std::vector<std::pair<std::string, std::string>> accounts;  // e-mail address and password
  std::vector<std::string> options;
  for (const char* const password :
       {"a|b|c", "x%#%y", "%", "%#", "#%", "100%", "%41", "a&b=c+", " a b ",
        "&Passwd=", "\xE4\xF6\xFC\xDF", "\x80uro", "\"quoted\"", "back\\slash"}) {
    accounts.emplace_back(std::to_string(accounts.size()) + "\xFC@x.test", password);
    options.insert(options.end(), {"--account", ToUtf8(accounts.back().first + ":" + password)});
  }
  const DemoService service(options);
  const DlRun run;
  for (const auto& [email, password] : accounts) {
    for (const auto& [more, code] : {std::pair{"", "0"}, {"!", "3"}}) {
      const std::string request = SignedIn(email, password + more, service.Address(kContentReport));
      EXPECT_EQ(run.CodeOf({request, service.AuthorityFile()}), code) << ToUtf8(password + more);
    }
  }
}

TEST(Passwords, TheTextMayComeInSeveralArguments) {
  const DemoService service;
  const DlRun run;
  ChildStart start = run.Start(service.Plain());
  start.Arguments = {start.Arguments[0],
                     service.Address("/versionqb.txt") + "|" + run.Folder.File("a "),
                     "b.dat|" + run.LogPath()};
  ChildProcess(start).Wait();
  EXPECT_EQ(run.Log(), "0");
  EXPECT_EQ(run.Folder.Content("a  b.dat"), "1.3.0");
}

}  // namespace
}  // namespace quillbox

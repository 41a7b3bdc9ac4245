// Passwords of every kind reach the service as they are.
#include <gtest/gtest.h>

#include "dl/support/demo_service.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

TEST(Passwords, ArriveInUtf8AndWhole) {
  const std::vector<std::string> passwords = {"a|b|c",
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
  const auto emailOf = [](std::size_t number) { return std::to_string(number) + "\xFC@x.test"; };
  std::vector<std::string> options;
  for (std::size_t i = 0; i < passwords.size(); ++i) {
    options.insert(options.end(), {"--account", ToUtf8(emailOf(i) + ":" + passwords[i])});
  }
  const DemoService service(options);
  const DlRun run;
  for (std::size_t i = 0; i < passwords.size(); ++i) {
    for (const auto& [more, code] : {std::pair{"", "0"}, {"!", "3"}}) {
      const std::string password = passwords[i] + more;
      const std::string request = SignedIn(emailOf(i), password, service.Address(kContentReport));
      EXPECT_EQ(run.CodeOf({request, service.AuthorityFile()}), code) << ToUtf8(password);
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

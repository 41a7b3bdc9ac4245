// `dl check`: what it says of an account, and that it keeps the account's secrets.
#include <gmock/gmock.h>

#include <csignal>

#include "dl/support/grants.h"
#include "dl/support/pseudo_terminal.h"

namespace quillbox {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(Check, SaysWhatHappenedAndNeverASecret) {
  struct Case {
    std::vector<std::string> options;  // of the service
    const char* secret;
    int status;
    const char* said;
  };
  const Case kCases[] = {
      {{}, kGrantName, 0, "Sign-in works.\nThe service answered with a report of "},
      {{"--currency", "SEK"}, kGrantName, 0, "in SEK."},
      {{"--warning", "Some \x1B[31m data"}, kGrantName, 0, "It warns: Some  [31m data"},
      {{"--warning", "A \xC2\x9B[ \xC2\xA3"}, kGrantName, 0, "It warns: A   [ \xC2\xA3"},
      {{"--fail", "refuse:/token"}, kGrantName, 3, "refused the sign-in.\n"},
      {{"--fail", "refuse:/token"}, kGrantName, 3, "400 invalid_grant\n"},
      {{"--fail", "429:/v2"}, kGrantName, 2, "429 RESOURCE_EXHAUSTED"},
      {{}, "grant:OTHERGRANT22", 3, "There is no such grant"},
      {{"--fail", "untrusted"}, kGrantName, 4, "is not secure: nothing was sent."},
      {{}, kPassword, 0, "Sign-in works."},
      {{}, "thyme", 3, "refused the sign-in."},
      {{}, "", 3, "refused the sign-in."},
      {{}, "\xFF", 1, "a character that can't be sent."},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.secret) + ": " + c.said);
    const GrantHome home;
    const DemoService service(c.options);
    const auto [status, said] =
        Check(c.secret, home.WholeEnvironment(service.Host(), service.AuthorityFile()));
    EXPECT_EQ(status, c.status);
    EXPECT_THAT(said, HasSubstr(c.said));
    EXPECT_THAT(said, Not(HasSubstr(kRefreshToken)));
    EXPECT_EQ(said.find("Connect the account again") != std::string::npos,
              c.secret == std::string(kGrantName) && c.status == 3);
    if (*c.secret != '\0') {
      EXPECT_THAT(said, Not(HasSubstr(c.secret)));
    }
  }
}

TEST(Check, AsksAtATerminalWithoutShowingWhatIsTyped) {
  if (InWine()) GTEST_SKIP() << kNoTerminal;
  struct Case {
    const char* keys;
    int signal;  // that it is sent then; 0 for none
    int status;
    const char* shown;
    bool ignored = true;  // Ctrl-C and Ctrl-\, by who starts it; else blocked
  };
  const Case kCases[] = {
      {"rosemary\r", 0, 0, "\r\nSign-in works.\r\n"},
      {"thyme\r", 0, 3, "refused the sign-in.\r\n"},
      {"rosemary\x03", 0, -SIGINT, "\r\n"},
      {"rosemary\x03", 0, -SIGINT, "\r\n", false},
      {"rosemary\x1C", 0, -SIGQUIT, "\r\n", false},
      {"rosemary", SIGTERM, -SIGTERM, "\r\n"},
      {"", SIGHUP, -SIGHUP, "\r\n"},
  };
  const GrantHome home;
  const DemoService service;
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.keys) + ", signal " + std::to_string(c.signal));
    const PseudoTerminal terminal;
    // Ignored, as by a shell that starts something in the background, or held back.
    const char* const deaf = c.ignored ? "--ignore-signal=INT,QUIT" : "--block-signal=INT,QUIT";
    ChildProcess dl(
        terminal.Start({"/usr/bin/env", "--default-signal", deaf, DlProgram(), "check", kEmail},
                       home.WholeEnvironment(service.Host(), service.AuthorityFile())));
    EXPECT_EQ(terminal.ReadTo("Password: "), "Password: ");
    EXPECT_FALSE(terminal.Echoes());
    terminal.Type(c.keys);
    if (c.signal != 0) ::kill(dl.Id(), c.signal);
    EXPECT_THAT(terminal.ReadTo(c.shown), Not(testing::ContainsRegex("rosemary|thyme")));
    EXPECT_EQ(dl.Wait(), c.status);
    EXPECT_TRUE(terminal.Echoes());
  }
}

TEST(Commands, SayWhatCannotBeLoaded) {
  if (InWine()) GTEST_SKIP() << "everything is linked into it";
  struct Case {
    const char *library, *command;
    std::vector<const char*> said;
  };
  const Case kCases[] = {
      {"libcurl.so.4", "check", {"libcurl can't be loaded"}},
      {"libcurl.so.4", "authorize", {"libcurl can't be loaded"}},
      {"libcurl.so.4", "revoke", {"access still stands", "libcurl can't be loaded"}},
      {"libcrypto.so.3", "authorize", {"libcrypto can't be loaded"}},
      {"libcrypto.so.3", "open", {"libcrypto can't be loaded"}},
  };
  for (const Case& c : kCases) {
    const GrantHome home;
    const TemporaryFolder libraries;
    libraries.Put(c.library, "");  // stands before the system's
    std::vector<std::string> environment = home.WholeEnvironment("localhost:1", "");
    environment.insert(environment.end(),
                       {"LD_LIBRARY_PATH=" + libraries.Path(), "QUILLBOX_OAUTH_CLIENT_ID=x"});
    ChildProcess dl({{DlProgram(), c.command}, environment});
    dl.Write(std::string(c.command) == "open" ? "https://x.test/\n" : "grant:TESTGRANT234\n");
    dl.CloseInput();
    const std::string said = dl.ReadAll();
    EXPECT_EQ(dl.Wait(), 1) << c.command;
    for (const char* const words : c.said) EXPECT_THAT(said, HasSubstr(words)) << c.command;
  }
}

}  // namespace
}  // namespace quillbox

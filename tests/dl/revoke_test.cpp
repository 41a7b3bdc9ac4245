// `dl revoke`: what is left of a grant here and at the service, and what is said of it.
#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "dl/support/grants.h"

namespace quillbox {
namespace {

using testing::HasSubstr;
using testing::Not;

Checked Revoke(const std::string& name, const std::vector<std::string>& environment) {
  ChildProcess dl({{DlProgram(), "revoke"}, environment});
  dl.Write(name + "\n");
  dl.CloseInput();
  const std::string said = dl.ReadAll();
  return {dl.Wait(), said};
}

TEST(Revoke, LeavesNoFileAndNoAccessIfItCan) {
  constexpr const char* kHere = "The grant is gone from this machine, ";
  struct Case {
    const char* fault;  // of the service; empty for none
    int status;
    const char *said, *reason;
    int after;  // what `dl check` says of the same grant elsewhere
    const char* name = kGrantName;
    const char* file = kGrantFile;
    const char* host = nullptr;  // in the place of the service's
    bool goneBefore = false;     // revoked from elsewhere
    bool fileStays = false;
  };
  const Case kCases[] = {
      {"", 0, kHere, "and its access at the service is gone too.", 3},
      {"503*1:/revoke", 0, kHere, "gone too.", 3},
      {"", 0, kHere, "gone too.", 3, kGrantName, kGrantFile, nullptr, true},
      {"", 1, kHere, "still stands at the service: take it away there", 0, kGrantName, kGrantFile,
       "localhost:1"},
      {"503:/revoke", 2, kHere, "may still stand", 0},
      {"503:/revoke", 2, kHere, "said: 503", 0},
      {"refuse:/revoke", 3, kHere, "The service refused: 403.", 0},
      {"untrusted", 4, kHere, "nothing was sent.", 4},
      {"", 3, "There is no such grant in ", "", 0, "grant:OTHERGRANT22", kGrantFile, nullptr, false,
       true},
      {"", 3, "There is no such grant in ", "", 0, "../TESTGRANT234", kGrantFile, nullptr, false,
       true},
      {"", 3, "There is no such grant in ", "", 0, kGrantName, "{}"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.fault) + ", " + c.name + ": " + c.said + c.reason);
    const GrantHome home(c.file), elsewhere;
    const std::string fault = c.fault;
    const DemoService service(fault.empty() ? std::vector<std::string>{}
                                            : std::vector<std::string>{"--fail", fault});
    const auto at = [&](const GrantHome& place) {
      return place.WholeEnvironment(service.Host(), service.AuthorityFile());
    };
    if (c.goneBefore) {
      EXPECT_EQ(Revoke(kGrantName, at(GrantHome())).Status, 0);
    }
    const auto [status, said] =
        Revoke(c.name, home.WholeEnvironment(c.host != nullptr ? c.host : service.Host(),
                                             service.AuthorityFile()));
    EXPECT_EQ(status, c.status);
    EXPECT_THAT(said, HasSubstr(c.said));
    EXPECT_THAT(said, HasSubstr(c.reason));
    EXPECT_THAT(said, Not(HasSubstr(kRefreshToken)));
    EXPECT_THAT(said, Not(HasSubstr(c.name)));
    EXPECT_EQ(ReadWhole(home.GrantPath()).has_value(), c.fileStays);
    EXPECT_EQ(Check(kGrantName, at(elsewhere)).Status, c.after);
    EXPECT_EQ(Revoke(c.name, at(home)).Status, 3) << "the second time";
  }
}

// Of a service that takes back all that a person has granted.
TEST(Revoke, LeavesTheServiceAloneWhileAnotherGrantMayBeTheSamePersons) {
  const std::string grant = kGrantFile, other = "grant:OTHERGRANT22";
  const auto with = [&](const char* from, const std::string& to) {
    return std::string(grant).replace(grant.find(from), std::string(from).size(), to);
  };
  struct Case {
    const char* name;
    std::string file;
    const char* place;  // of the other file
    bool asked;
  };
  const Case kCases[] = {
      {"of the same client", with(kRefreshToken, "another"), "grant:OTHERGRANT22", false},
      {"of another publisher account", with("0001", "0002"), "grant:OTHERGRANT22", false},
      {"that can't be read", "{", "grant:OTHERGRANT22", false},
      {"of another client", with("quillbox-demo", "somebody"), "grant:OTHERGRANT22", true},
      {"left by a run that was killed", grant, "grant:OTHERGRANT22.7.part", true},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    const GrantHome home, elsewhere;
    const DemoService service({"--revoke", "person"});
    std::ofstream(home.GrantPath(c.place)) << c.file;
    ::chmod(home.GrantPath(c.place).c_str(), S_IRUSR | S_IWUSR);
    const auto [status, said] =
        Revoke(kGrantName, home.WholeEnvironment(service.Host(), service.AuthorityFile()));
    EXPECT_EQ(status, 0);
    EXPECT_THAT(said, HasSubstr(c.asked ? "at the service is gone too" : "was not asked"));
    EXPECT_FALSE(ReadWhole(home.GrantPath()));
    EXPECT_EQ(Check(kGrantName, elsewhere.WholeEnvironment(service.Host(), service.AuthorityFile()))
                  .Status,
              c.asked ? 3 : 0);
    const bool left = std::string(c.place).ends_with(".part");
    EXPECT_EQ(ReadWhole(home.GrantPath(c.place)).has_value(), !left);
  }
}

// As `dl authorize` has the folder while the service makes a grant.
TEST(Revoke, DoesNotAskTheServiceWhileAGrantIsBeingMade) {
  if (InWine()) GTEST_SKIP() << kLocksOfItsOwn;
  const GrantHome home, elsewhere;
  const DemoService service({"--revoke", "person"});
  const std::string folder = std::filesystem::path(home.GrantPath()).parent_path();
  const int held = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  ASSERT_EQ(::flock(held, LOCK_SH), 0);
  auto environment = home.WholeEnvironment(service.Host(), service.AuthorityFile());
  environment.back() = "QUILLBOX_DL_LIMITS=1000,1000,2000";
  EXPECT_THAT(Revoke(kGrantName, environment).Said, HasSubstr("was not asked"));
  ::close(held);
  EXPECT_FALSE(ReadWhole(home.GrantPath()));
  EXPECT_EQ(
      Check(kGrantName, elsewhere.WholeEnvironment(service.Host(), service.AuthorityFile())).Status,
      0);
}

// Of two at once the last one asks.
TEST(Revoke, TakesTurns) {
  const std::string other = "grant:OTHERGRANT22";
  const GrantHome home, elsewhere;
  const DemoService service({"--revoke", "person"});
  std::filesystem::copy_file(home.GrantPath(), home.GrantPath(other));
  const auto environment = home.WholeEnvironment(service.Host(), service.AuthorityFile());
  std::vector<std::unique_ptr<ChildProcess>> runs;
  for (const std::string& name : {std::string(kGrantName), other}) {
    runs.push_back(
        std::make_unique<ChildProcess>(ChildStart{{DlProgram(), "revoke"}, environment}));
    runs.back()->Write(name + "\n");
    runs.back()->CloseInput();
  }
  std::string said;
  for (const auto& run : runs) said += run->ReadAll();
  EXPECT_THAT(said, testing::AllOf(HasSubstr("was not asked"), HasSubstr("is gone too")));
  EXPECT_EQ(
      Check(kGrantName, elsewhere.WholeEnvironment(service.Host(), service.AuthorityFile())).Status,
      3);
}

}  // namespace
}  // namespace quillbox

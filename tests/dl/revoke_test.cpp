// `dl revoke`: what is left of a grant here and at the service, and what is said of it.
#include <gmock/gmock.h>

#include "dl/support/grants.h"

namespace quillbox {
namespace {

using testing::HasSubstr;
using testing::Not;

Checked Revoke(const std::string& name, const std::vector<std::string>& environment) {
  ChildProcess dl({{QUILLBOX_DL_PROGRAM, "revoke"}, environment});
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

}  // namespace
}  // namespace quillbox

// `dl open`: an address with a secret in the browser, on a machine with another user.
#include <gmock/gmock.h>

#include "dl/support/two_users.h"

namespace quillbox {
namespace {

using testing::HasSubstr;
using testing::Not;

class Open : public testing::Test {
 protected:
  void SetUp() override {
    if (InWine()) GTEST_SKIP() << kNoVisitors;
  }

  // A copy for all to run, since the one that was built may lie where only its builder gets to.
  Open() {
    std::filesystem::copy_file(DlProgram(), place_.File("dl"));
    std::filesystem::permissions(place_.Path(), std::filesystem::perms(0755));
  }

  // `opener`: what the desktop's one does after it has noted what it shall open.
  void Begin(const std::string& address, const std::string& opener = "sleep 20",
             const std::string& person = "60000") {
    std::filesystem::remove(tools_.File("opened"));
    tools_.PutProgram("xdg-open",
                      "cd " + tools_.Path() + "\necho \"$1\" > new; mv new opened\n" + opener);
    GiveToPerson(tools_.Path());
    dl_ =
        std::make_unique<ChildProcess>(ChildStart{AsPerson({place_.File("dl"), "open"}),
                                                  {"PATH=" + tools_.Path() + ":/usr/bin:/bin",
                                                   "QUILLBOX_DL_LIMITS=5000,5000,5000," + person}});
    dl_->Write(address + "\n");
  }

  // The address that the browser got, without the line's end.
  std::string Opened() const {
    for (int i = 0; i < 30'000 && !ReadWhole(tools_.File("opened")); ++i) ::usleep(1000);
    const std::string line = tools_.Content("opened");
    return line.substr(0, line.find('\n'));
  }

  static std::string VisitAsPerson(const std::string& page, bool throughSix = false) {
    if (!CanActAsOthers()) return RawAnswer(page, throughSix);
    const ActingAs person(kPerson);
    return RawAnswer(page, throughSix);
  }

  const TemporaryFolder place_, tools_;
  std::unique_ptr<ChildProcess> dl_;
};

TEST_F(Open, LeadsOnByteForByteOnceAndLeavesNothing) {
  std::string address = "https://h.test:8443/%41%2f";
  for (char c = '!'; c < '\x7F'; ++c) address += c;
  for (const bool throughSix : {false, true}) {
    Begin(address);
    const std::string page = Opened();
    EXPECT_THAT(page, testing::MatchesRegex("http://127.0.0.1:[0-9]+/[A-Za-z0-9_-]+"));
    EXPECT_GE(page.size(), std::string("http://127.0.0.1:1/").size() + 43);
    const std::string server = page.substr(0, page.rfind('/') + 1);
    EXPECT_EQ(VisitAsPerson(server + std::string(100'000, 'x')), "");
    const std::string answer = VisitAsPerson(page, throughSix);
    EXPECT_EQ(PlaceIn(answer), address);
    EXPECT_THAT(answer, HasSubstr("\r\nReferrer-Policy: no-referrer\r\n"));
    EXPECT_THAT(answer, HasSubstr("\r\nCache-Control: no-store\r\n"));
    EXPECT_EQ(dl_->Wait(), 0);
    EXPECT_EQ(VisitAsPerson(page), "");
    for (const char* const own : {"opened", "xdg-open"}) std::filesystem::remove(tools_.File(own));
    EXPECT_TRUE(std::filesystem::is_empty(tools_.Path()));
  }
}

TEST_F(Open, EndsWithoutABrowserOrAnAddress) {
  const struct {
    std::string address, opener, person;
    int status;
    const char* said;
  } kCases[] = {
      {"https://h.test/?Passwd=rosemary", "exit 0", "300", 2, "No browser came."},
      {"https://h.test/?Passwd=rosemary", "exit 3", "60000", 1, "browser could not be opened"},
      {"https://h.test/?Passwd=rosemary", "sleep 20", "2500", 2, "No browser came."},
      {"http://h.test/?Passwd=rosemary", "", "60000", 1, "no https address"},
      {"https://h.test/?Passwd=rose mary", "", "60000", 1, "no https address"},
      {"https://h.test/?Passwd=rosemary\r", "exit 0", "300", 2, "No browser came."},
      {"https://h.test/\rSet-Cookie:rosemary\x01", "", "60000", 1, "no https address"},
      {"https://h.test/?Passwd=r\xC3\xB6semary", "", "60000", 1, "no https address"},
      {"", "", "60000", 1, "no https address"},
  };
  for (const auto& c : kCases) {
    Begin(c.address, c.opener, c.person);
    const std::string said = dl_->ReadAll();
    EXPECT_THAT(said, HasSubstr(c.said)) << c.address;
    EXPECT_THAT(said, Not(HasSubstr("mary")));
    EXPECT_EQ(dl_->Wait(), c.status) << c.address;
  }
}

TEST_F(Open, ShowsAnotherUserNothing) {
  if (!CanActAsOthers()) GTEST_SKIP() << "only root can act as two users";
  const std::string secret = "rosemary-" + std::to_string(::getpid());  // other tests have theirs
  const std::string address = "https://h.test/?Passwd=" + secret;
  Begin(address);
  const std::string page = Opened();
  {
    const ActingAs other(kOther);
    EXPECT_TRUE(ArgumentsShow(page)) << "so it sees what the opener got";
    EXPECT_FALSE(ArgumentsShow(secret));
    for (int i = 0; i < 300; ++i) ASSERT_EQ(RawAnswer(page, i % 2 == 1), "") << i;
  }
  EXPECT_EQ(RawAnswer(page), "") << "root is another user too";
  EXPECT_EQ(PlaceIn(VisitAsPerson(page)), address);
  EXPECT_EQ(dl_->Wait(), 0);
}

}  // namespace
}  // namespace quillbox

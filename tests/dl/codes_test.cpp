// Every result code, and every way in which the demo service can fail.
#include <gtest/gtest.h>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "dl/support/demo_service.h"
#include "dl/support/dl_run.h"

namespace quillbox {
namespace {

constexpr const char* kReferralReport =
    "/adsense/report/referrals?product=ref&dateRange.simpleDate=thismonth";
constexpr const char* kQuick = "5000,400,5000";       // milliseconds: nothing for long is an error
constexpr const char* kQuickInAll = "5000,5000,900";  // too little for a dripping answer

struct Case {
  const char* name;
  const char* fail;      // a failure of the service, or none
  const char* password;  // null: the plain form
  const char* path;
  const char* code;
  const char* limits = "5000,5000,15000";
};

const Case kCases[] = {
    {"content report", "none", kPassword, kContentReport, "0"},
    {"referral report", "none", kPassword, kReferralReport, "0"},
    {"version", "none", nullptr, "/versionqb.txt", "0"},
    {"wrong password", "none", "thyme", kContentReport, "3"},
    {"empty password", "none", "", kContentReport, "3"},
    {"not signed in, a page comes", "none", nullptr, kContentReport, "0"},
    {"refused at the sign-in", "refuse:/accounts", kPassword, kContentReport, "3"},
    {"refused at the report", "refuse:/adsense/report", kPassword, kContentReport, "3"},
    {"this account refused", "refuse:someone@example.test", kPassword, kContentReport, "3"},
    {"another account refused", "refuse:other@example.test", kPassword, kContentReport, "0"},
    {"401", "401:/adsense/report", kPassword, kContentReport, "3"},
    {"401 at the sign-in", "401:/accounts", kPassword, kContentReport, "3"},
    {"403 in the plain form", "403", nullptr, "/versionqb.txt", "3"},
    {"error page", "error", kPassword, kContentReport, "2"},
    {"error page at the report", "error:/adsense/report", kPassword, kContentReport, "2"},
    {"error page at the page behind the sign-in", "error:/adsense/gaia", kPassword, kContentReport,
     "2"},
    {"404", "404", nullptr, "/versionqb.txt", "2"},
    {"unknown path", "none", nullptr, "/nothing", "2"},
    {"stall at the sign-in", "stall:/accounts", kPassword, kContentReport, "2", kQuick},
    {"stall at the report", "stall:/adsense/report", kPassword, kContentReport, "2", kQuick},
    {"stall in the plain form", "stall", nullptr, "/versionqb.txt", "2", kQuick},
    {"drip, slow but moving", "drip:/adsense/report", kPassword, kContentReport, "2", kQuickInAll},
    {"drip that ends in time", "drip:/accounts", kPassword, kContentReport, "0"},
    {"cut off", "cut", nullptr, "/versionqb.txt", "2"},
    {"report cut off", "cut:/adsense/report", kPassword, kContentReport, "2"},
    {"redirect to http", "downgrade:/adsense/report", kPassword, kContentReport, "2"},
    {"redirect of the sign-in to http", "downgrade:/accounts", kPassword, kContentReport, "2"},
    {"certificate for another name", "wrong-name", kPassword, kContentReport, "4"},
    {"certificate of another authority", "untrusted", kPassword, kContentReport, "4"},
    {"untrusted in the plain form", "untrusted", nullptr, "/versionqb.txt", "4"},
};

void PrintTo(const Case& c, std::ostream* out) {
  *out << c.name;
}

class Codes : public testing::TestWithParam<Case> {};

TEST_P(Codes, AreLeftInTheLogAndDataWithSuccessAlone) {
  const Case& c = GetParam();
  DemoService service({"--account", std::string(kEmail) + ":" + kPassword, "--fail", c.fail});
  const std::string address = service.Address(c.path);
  const DlRun run;
  EXPECT_EQ(run.Run({c.password == nullptr ? address : SignedIn(kEmail, c.password, address),
                     service.AuthorityFile(),
                     c.limits,
                     {}}),
            0);
  EXPECT_EQ(run.Log(), c.code);
  EXPECT_EQ(run.Data().has_value(), std::string(c.code) == "0");
  EXPECT_EQ(service.Process().End(), 0) << "the service ends cleanly whatever it was doing";
}

INSTANTIATE_TEST_SUITE_P(OfTheDemoService, Codes, testing::ValuesIn(kCases));

TEST(Faults, AreSwitchedWhileTheServiceRuns) {
  const DemoService service;
  const DlRun run;
  const auto code = [&](const char* path) {
    run.Run({service.Address(path), service.AuthorityFile()});
    return run.Log();
  };
  EXPECT_EQ(code("/versionqb.txt"), "0");
  EXPECT_EQ(code("/demo/fail?mode=403:/version"), "0");
  EXPECT_EQ(code("/versionqb.txt"), "3");
  EXPECT_EQ(code("/demo/fail?mode=nonsense"), "2");
  EXPECT_EQ(code("/demo/fail?mode=none"), "0");
  EXPECT_EQ(code("/versionqb.txt"), "0");
}

// Absent: nobody listens. Deaf: its queue is full, so that connections are not taken. Silent: it
// takes them and never says a word.
enum class Manner { kAbsent, kDeaf, kSilent };

class MuteServer {
 public:
  explicit MuteServer(Manner manner) {
    const int server = Socket(0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const general = reinterpret_cast<sockaddr*>(&address);
    EXPECT_EQ(::bind(server, general, size), 0);
    EXPECT_EQ(::getsockname(server, general, &size), 0);
    port_ = ntohs(address.sin_port);
    if (manner != Manner::kAbsent) {
      EXPECT_EQ(::listen(server, manner == Manner::kDeaf ? 0 : 8), 0);
    }
    for (int i = 0; manner == Manner::kDeaf && i < 3; ++i) {
      ::connect(Socket(SOCK_NONBLOCK), general, size);
    }
  }
  ~MuteServer() {
    for (const int socket : sockets_) ::close(socket);
  }

  std::string Address() const { return "https://127.0.0.1:" + std::to_string(port_) + "/x"; }

 private:
  int Socket(int flags) {
    sockets_.push_back(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | flags, 0));
    return sockets_.back();
  }

  std::vector<int> sockets_;
  int port_ = 0;
};

TEST(Connection, IsToldFromAnAnswer) {
  struct MuteCase {
    Manner manner;
    const char *code, *name;
  };
  const MuteCase kMute[] = {{Manner::kAbsent, "1", "absent"},
                            {Manner::kDeaf, "1", "deaf"},
                            {Manner::kSilent, "2", "silent"}};
  for (const MuteCase& c : kMute) {
    const MuteServer server(c.manner);
    const DlRun run;
    run.Run({SignedIn(kEmail, kPassword, server.Address()), "", "400,5000,5000", {}});
    EXPECT_EQ(run.Log(), c.code) << c.name;
  }
}

TEST(Connection, AnUnknownHostIs1) {
  const DlRun run;
  run.Run({SignedIn(kEmail, kPassword, "https://nowhere.invalid/x"), "", kQuick, {}});
  EXPECT_EQ(run.Log(), "1");
}

TEST(Connection, WhatCannotBeUnderstoodOrMustNotBeSentHasACodeToo) {
  struct BadRequest {
    const char *request, *code;
  };
  const BadRequest kBad[] = {{"", "1"},
                             {"ftp://localhost/x", "1"},
                             {"https://user@localhost/x", "1"},
                             {"Email=a%#%https://localhost/x", "1"},
                             {"Email=a&Passwd=b%#%http://localhost/x", "4"}};
  for (const BadRequest& bad : kBad) {
    const DlRun run;
    EXPECT_EQ(run.Run({bad.request, "", kQuick, {}}), 0) << bad.request;
    EXPECT_EQ(run.Log(), bad.code) << bad.request;
    EXPECT_FALSE(run.Data()) << bad.request;
  }
}

}  // namespace
}  // namespace quillbox

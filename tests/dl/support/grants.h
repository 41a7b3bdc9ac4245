// A grant that the demo service knows, for the tests of `dl`.
#pragma once

#include <sys/stat.h>

#include "dl/support/demo_service.h"

namespace quillbox {

inline constexpr const char* kGrantName = "grant:TESTGRANT234";
// As `dl authorize` leaves it, for kRefreshToken.
inline constexpr const char* kGrantFile =
    R"({"refresh_token": "1//a-grant_of.the/tests", "client_id": "quillbox-demo",)"
    R"("client_secret": "no-secret", "account": "accounts/pub-0000000000000001",)"
    R"("account_created": "2019-03-01"})";

// A folder for data, in which `dl` keeps grants.
class GrantHome {
 public:
  // `grant`: the file of kGrantName; empty for none.
  explicit GrantHome(const std::string& grant = kGrantFile) {
    if (grant.empty()) return;
    std::filesystem::create_directories(folder_.File("Quillbox/grants"));
    Put(grant);
  }

  void Put(const std::string& grant) const {
    std::ofstream(GrantPath()) << grant;
    ::chmod(GrantPath().c_str(), S_IRUSR | S_IWUSR);
  }

  // Of the file, which needn't be there.
  std::string GrantPath(const std::string& name = kGrantName) const {
    return folder_.File("Quillbox/grants/" + name.substr(name.find(':') + 1));
  }

  // What `dl` needs beyond authority and limits to ask `host`, "localhost:PORT", with the grant.
  std::vector<std::string> Environment(const std::string& host) const {
    return {"QUILLBOX_API=" + host, "XDG_DATA_HOME=" + folder_.Path()};
  }
  // The whole of it, for either way of signing in.
  std::vector<std::string> WholeEnvironment(const std::string& host,
                                            const std::string& authorityFile) const {
    return {"QUILLBOX_API=" + host,     "XDG_DATA_HOME=" + folder_.Path(),
            "QUILLBOX_SERVICE=" + host, "SSL_CERT_FILE=" + authorityFile,
            "PATH=/usr/bin:/bin",       "QUILLBOX_DL_LIMITS=5000,5000,15000"};
  }

 private:
  const TemporaryFolder folder_;
};

// How `dl` fetches with the grant. The address's own host is nobody's: the grant says where to go.
inline DlStart Granted(const DemoService& service, const GrantHome& home,
                       const std::string& path = kContentReport) {
  return {SignedIn(kEmail, kGrantName, "https://old.invalid" + path), service.AuthorityFile(),
          DlStart().Limits, home.Environment(service.Host())};
}

struct Checked {
  int Status;
  std::string Said;
};

// Runs `dl check`, with a password or the name of a grant as its input.
inline Checked Check(const std::string& secret, const std::vector<std::string>& environment) {
  ChildProcess shell({{"/bin/sh", "-c", "printf '%s\\n' \"$1\" | \"$2\" check \"$3\"", "sh", secret,
                       DlProgram(), kEmail},
                      environment});
  const std::string said = shell.ReadAll();
  return {shell.Wait(), said};
}

}  // namespace quillbox

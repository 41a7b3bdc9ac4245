// The demo service, running for one test.
#pragma once

#include "dl/support/dl_run.h"

namespace quillbox {

inline constexpr const char* kRefreshToken = "1//a-grant_of.the/tests";

class DemoService {
 public:
  // Listens when this returns, with an account of kEmail that kPassword and kRefreshToken open.
  // `options`: more of its command line.
  explicit DemoService(const std::vector<std::string>& options = {})
      : process_(StartOf(AuthorityFile(), options)) {
    const std::string said = process_.ReadLine();
    const std::string expected = "listening on https://";
    if (!said.starts_with(expected)) throw std::runtime_error("no demo service: " + said);
    host_ = said.substr(expected.size());
  }

  const std::string& Host() const { return host_; }  // "localhost:PORT"
  std::string Address(const std::string& path) const { return "https://" + host_ + path; }
  std::string AuthorityFile() const { return folder_.File("authority.pem"); }

  // How `dl` fetches from it, signing in or not.
  DlStart Signed(const std::string& path = kContentReport,
                 const std::string& password = kPassword) const {
    return {SignedIn(kEmail, password, Address(path)), AuthorityFile()};
  }
  DlStart Plain(const std::string& path = "/versionqb.txt") const {
    return {Address(path), AuthorityFile()};
  }

  ChildProcess& Process() { return process_; }

 private:
  static ChildStart StartOf(const std::string& authorityFile,
                            const std::vector<std::string>& options) {
    const std::string email = kEmail;
    ChildStart start{{QUILLBOX_DEMO_SERVICE_PROGRAM, "--authority", authorityFile, "--account",
                      email + ":" + kPassword, "--grant", email + ":" + kRefreshToken},
                     {}};
    start.Arguments.insert(start.Arguments.end(), options.begin(), options.end());
    return start;
  }

  const TemporaryFolder folder_;
  ChildProcess process_;
  std::string host_;
};

}  // namespace quillbox

// Who is signed in: cookies and the accounts that they stand for. May be used from any thread.
#pragma once

#include <map>
#include <mutex>
#include <string>

namespace quillbox {

class SignIns {
 public:
  // E-mail addresses and passwords, in UTF-8.
  explicit SignIns(std::map<std::string, std::string> accounts);

  // The value of a new cookie, or empty when address or password is wrong.
  std::string Open(const std::string& email, const std::string& password);

  // The account of the request that carries this "Cookie" header, empty when it isn't signed in.
  std::string AccountOf(const std::string& cookieHeader) const;

 private:
  const std::map<std::string, std::string> accounts_;
  mutable std::mutex mutex_;
  std::map<std::string, std::string> emails_;  // by cookie value
};

// The cookie's name in front of its value, as both headers write it.
inline constexpr const char* kCookiePrefix = "SID=";

}  // namespace quillbox

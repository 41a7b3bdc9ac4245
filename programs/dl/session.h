// A conversation with web servers: cookies are kept in memory from one exchange to the next.
#pragma once

#include <chrono>
#include <string>

#include "curl.h"
#include "request/answer.h"
#include "request/limits.h"
#include "unpack/unpacker.h"

namespace quillbox {

// The connection that libcurl opened last. libcurl 8 tells of one only once its security stands
// too, so its socket is asked.
struct LastConnection {
  int Socket = -1;
  bool Reached = false;  // the other end took it

  void Ask();
};

enum class Allowed { kHttpsAlone, kHttpToo };

// Certificates are always verified, TLS is 1.2 or later, redirects are followed within https alone,
// and no user name or password is taken from or sent to anywhere by itself. The proxy is the one
// that the environment names in libcurl's variables. Bodies come unpacked; packed ones are asked
// for when zlib can be loaded.
class Session {
 public:
  // `authorityFile`: certificates (PEM) to trust in the place of the system's; empty for the
  // system's. The total limit runs from here on. `curl` must be loaded and outlive the session.
  Session(const CurlLibrary& curl, const Limits& limits, std::string authorityFile);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Redirects are followed. An address of another scheme than allowed is not asked: kNoAnswer.
  Answer Get(const std::string& address, Allowed allowed);

  // https alone. A redirect is not followed but told, so that no server can have the form sent on
  // to another one.
  Answer PostForm(const std::string& address, const std::string& form);

  // https alone, with an access token ("Authorization: Bearer"). No redirect is followed.
  Answer GetWithToken(const std::string& address, const std::string& token);

  // The total limit, and what is left of it, never below 0.
  std::chrono::milliseconds WholeTime() const { return limits_.Total; }
  std::chrono::milliseconds TimeLeft() const;

 private:
  template <typename Value>
  void Set(CURLoption option, Value value);
  void SetCommon(const std::string& address);
  void ClearFolder(CURLoption option);
  void SetSecurity();
  void SetTimes();
  Answer Perform();
  Answer Outcome(CURLcode result) const;
  std::string Text(CURLINFO what) const;
  template <typename Number>
  Number Figure(CURLINFO what) const;

  const CurlLibrary& curl_;
  ZlibLibrary zlib_;
  Limits limits_;
  std::string authorityFile_;
  std::chrono::steady_clock::time_point end_;
  CURL* handle_;
  bool usable_;          // every option was taken
  LastConnection last_;  // connections outlive their exchange
};

}  // namespace quillbox

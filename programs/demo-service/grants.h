// Who has been granted access: codes, grants and access tokens. May be used from any thread.
#pragma once

#include <chrono>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "authorization.h"

namespace quillbox {

struct Tokens {
  std::string Access;
  std::string Grant;  // the refresh token
  std::string Scope;
};

// With kNewGrantOnce whoever uses a grant that has been replaced takes away what replaced it too.
enum class OnRefresh { kKeepGrant, kNewGrant, kNewGrantOnce };

// What goes besides the grant that is given back: nothing, or all that the same person has granted.
enum class OnRevoke { kGrant, kPerson };

class Grants {
 public:
  using Clock = std::chrono::steady_clock;

  // `grants`: refresh tokens that hold from the start, and whose they are. `tokenLife`: how long an
  // access token holds.
  Grants(const std::map<std::string, std::string>& grants, std::chrono::seconds tokenLife,
         OnRefresh onRefresh = OnRefresh::kKeepGrant, OnRevoke onRevoke = OnRevoke::kGrant);

  // A new code by which `email` allows what was wished for. Holds once and for ten minutes.
  std::string NewCode(const std::string& email, const Authorization& wish);

  // A new grant for a code; nothing when code, redirect or verifier are not right. A code that
  // comes a second time takes away what it brought the first time.
  std::optional<Tokens> Redeem(const std::string& code, const std::string& redirectUri,
                               const std::string& verifier);

  // A new access token; nothing for a grant that isn't there. Unless grants are kept, a new one
  // takes the place of this one, which holds no more; its access tokens stay.
  std::optional<Tokens> Refresh(const std::string& grant);

  // The e-mail address behind an access token that holds, empty without one.
  std::string AccountOf(const std::string& accessToken) const;

  // The e-mail address behind a code or grant, empty without one.
  std::string OwnerOf(const std::string& codeOrGrant) const;

  // Takes away a grant with its access tokens, given itself or one of these, and what OnRevoke says
  // besides. False when unknown.
  bool Revoke(const std::string& token);

  std::chrono::seconds TokenLife() const { return tokenLife_; }

 private:
  struct Code {
    std::string Email;
    Authorization Wish;
    Clock::time_point End;
    std::string Grant = {};  // what it has brought; empty: not used yet
  };
  struct Grant {
    std::string Email;
    std::string Scope;
    std::string First = {};  // the grant that it has replaced, in however many steps
  };
  struct Access {
    std::string Grant;
    Clock::time_point End;
  };

  Tokens NewAccess(const std::string& grant);
  bool TakeAway(const std::string& grant);
  std::string Replace(const std::string& grant);
  void TakeAwayAll(std::string Grant::*of, const std::string& value);

  const std::chrono::seconds tokenLife_;
  const OnRefresh onRefresh_;
  const OnRevoke onRevoke_;
  mutable std::mutex mutex_;
  std::map<std::string, Code> codes_;
  std::map<std::string, Grant> grants_;
  std::map<std::string, Access> access_;
  std::map<std::string, std::string> replaced_;  // grants that hold no more, and their first ones
};

}  // namespace quillbox

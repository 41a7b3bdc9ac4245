#include "grants.h"

#include <random>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

constexpr std::chrono::minutes kCodeLife(10);

// `kind` in front and 40 characters that nobody can guess.
std::string NewName(const std::string& kind) {
  constexpr char kAlphabet[] = "abcdefghijklmnopqrstuvwxyz234567";
  std::random_device random;
  std::string name = kind;
  for (int i = 0; i < 40; ++i) name += kAlphabet[random() % 32];
  return name;
}

}  // namespace

Grants::Grants(const std::map<std::string, std::string>& grants, std::chrono::seconds tokenLife,
               OnRefresh onRefresh, OnRevoke onRevoke)
    : tokenLife_(tokenLife), onRefresh_(onRefresh), onRevoke_(onRevoke) {
  for (const auto& [token, email] : grants) grants_[token] = {email, "adsense.readonly", token};
}

std::string Grants::NewCode(const std::string& email, const Authorization& wish) {
  const std::lock_guard lock(mutex_);
  std::string code = NewName("code-");
  codes_[code] = {email, wish, Clock::now() + kCodeLife};
  return code;
}

std::optional<Tokens> Grants::Redeem(const std::string& code, const std::string& redirectUri,
                                     const std::string& verifier) {
  const std::lock_guard lock(mutex_);
  const auto found = codes_.find(code);
  if (found == codes_.end()) return std::nullopt;
  Code& known = found->second;
  if (!known.Grant.empty()) {
    TakeAway(known.Grant);
    return std::nullopt;
  }
  if (Clock::now() > known.End || redirectUri != known.Wish.RedirectUri ||
      !Verifies(verifier, known.Wish.Method, known.Wish.Challenge)) {
    return std::nullopt;
  }
  known.Grant = NewName("grant-");
  grants_[known.Grant] = {known.Email, known.Wish.Scope, known.Grant};
  return NewAccess(known.Grant);
}

std::optional<Tokens> Grants::Refresh(const std::string& grant) {
  const std::lock_guard lock(mutex_);
  if (!grants_.contains(grant)) {
    const auto replaced = replaced_.find(grant);
    const bool stolen = onRefresh_ == OnRefresh::kNewGrantOnce && replaced != replaced_.end();
    if (stolen) TakeAwayAll(&Grant::First, replaced->second);
    return std::nullopt;
  }
  return NewAccess(onRefresh_ == OnRefresh::kKeepGrant ? grant : Replace(grant));
}

std::string Grants::Replace(const std::string& grant) {
  auto node = grants_.extract(grant);
  std::string name = NewName("grant-");
  node.key() = name;
  replaced_[grant] = node.mapped().First;
  grants_.insert(std::move(node));
  for (auto& [token, access] : access_) {
    if (access.Grant == grant) access.Grant = name;
  }
  for (auto& [text, code] : codes_) {
    if (code.Grant == grant) code.Grant = name;
  }
  return name;
}

Tokens Grants::NewAccess(const std::string& grant) {
  Tokens tokens{NewName("access-"), grant, grants_[grant].Scope};
  access_[tokens.Access] = {grant, Clock::now() + tokenLife_};
  return tokens;
}

std::string Grants::AccountOf(const std::string& accessToken) const {
  const std::lock_guard lock(mutex_);
  const auto found = access_.find(accessToken);
  if (found == access_.end() || Clock::now() >= found->second.End) return "";
  return grants_.at(found->second.Grant).Email;
}

std::string Grants::OwnerOf(const std::string& codeOrGrant) const {
  const std::lock_guard lock(mutex_);
  const auto code = codes_.find(codeOrGrant);
  if (code != codes_.end()) return code->second.Email;
  const auto grant = grants_.find(codeOrGrant);
  return grant == grants_.end() ? "" : grant->second.Email;
}

bool Grants::Revoke(const std::string& token) {
  const std::lock_guard lock(mutex_);
  const auto access = access_.find(token);
  const auto grant = grants_.find(access == access_.end() ? token : access->second.Grant);
  if (grant == grants_.end()) return false;
  if (onRevoke_ == OnRevoke::kGrant) return TakeAway(grant->first);
  TakeAwayAll(&Grant::Email, grant->second.Email);
  return true;
}

void Grants::TakeAwayAll(std::string Grant::*of, const std::string& value) {
  const std::string wanted = value;  // may lie in what goes
  std::vector<std::string> names;
  for (const auto& [name, grant] : grants_) {
    if (grant.*of == wanted) names.push_back(name);
  }
  for (const std::string& name : names) TakeAway(name);
}

bool Grants::TakeAway(const std::string& grant) {
  const std::string name = grant;  // may lie in what goes
  std::erase_if(access_, [&](const auto& entry) { return entry.second.Grant == name; });
  return grants_.erase(name) > 0;
}

}  // namespace quillbox

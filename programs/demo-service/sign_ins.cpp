#include "sign_ins.h"

#include <random>
#include <string_view>
#include <utility>

namespace quillbox {

SignIns::SignIns(std::map<std::string, std::string> accounts) : accounts_(std::move(accounts)) {}

std::string SignIns::Open(const std::string& email, const std::string& password) {
  const auto account = accounts_.find(email);
  if (account == accounts_.end() || account->second != password) return "";
  std::random_device random;
  const std::lock_guard lock(mutex_);
  std::string cookie = std::to_string(random()) + std::to_string(random());
  emails_[cookie] = email;
  return cookie;
}

std::string SignIns::AccountOf(const std::string& cookieHeader) const {
  const std::string_view header = cookieHeader;
  const std::size_t begin = header.find(kCookiePrefix);
  if (begin == std::string_view::npos) return "";
  std::string_view value = header.substr(begin + std::string_view(kCookiePrefix).size());
  value = value.substr(0, value.find(';'));
  const std::lock_guard lock(mutex_);
  const auto found = emails_.find(std::string(value));
  return found == emails_.end() ? "" : found->second;
}

}  // namespace quillbox

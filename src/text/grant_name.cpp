#include "text/grant_name.h"

#include <algorithm>

namespace quillbox {
namespace {

constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ234567";

}  // namespace

bool IsGrantName(std::string_view password) {
  if (!password.starts_with(kGrantNamePrefix)) return false;
  password.remove_prefix(kGrantNamePrefix.size());
  return password.size() == kGrantNameLetters && std::ranges::all_of(password, [](char c) {
           return kLetters.find(c) != std::string_view::npos;
         });
}

std::string GrantName(const std::array<unsigned char, kGrantNameLetters>& random) {
  std::string name(kGrantNamePrefix);
  for (const unsigned char byte : random) name += kLetters[byte % kLetters.size()];
  return name;
}

}  // namespace quillbox

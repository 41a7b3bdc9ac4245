#include "authorization.h"

#include <openssl/evp.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>

namespace quillbox {
namespace {

// "+" is a blank; a "%" without two digits behind it stays.
std::string Decode(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    decoded += text[i] == '+' ? ' ' : text[i];
    if (text[i] != '%' || i + 2 >= text.size()) continue;
    unsigned char byte = 0;
    const char* const end = text.data() + i + 3;
    if (std::from_chars(end - 2, end, byte, 16).ptr != end) continue;
    decoded.back() = static_cast<char>(byte);
    i += 2;
  }
  return decoded;
}

}  // namespace

std::string FieldOf(const FormFields& fields, const std::string& name) {
  const auto found = fields.find(name);
  return found == fields.end() ? "" : found->second;
}

FormFields QueryFields(std::string_view address) {
  FormFields fields;
  address.remove_prefix(std::min(address.find('?'), address.size()));
  while (!address.empty()) {
    address.remove_prefix(1);  // the "?" or "&"
    const std::string_view field = address.substr(0, address.find('&'));
    const std::size_t sign = std::min(field.find('='), field.size());
    if (!field.empty()) {
      fields.emplace(Decode(field.substr(0, sign)),
                     Decode(field.substr(std::min(sign + 1, field.size()))));
    }
    address.remove_prefix(field.size());
  }
  return fields;
}

namespace {

constexpr std::string_view kLetters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

bool IsVerifier(std::string_view text) {
  const auto fits = [](char c) {
    return c == '.' || c == '~' || kLetters.find(c) < kLetters.size();
  };
  return text.size() >= 43 && text.size() <= 128 && std::all_of(text.begin(), text.end(), fits);
}

// Base64 in the alphabet for addresses, without the padding.
std::string Base64Url(const unsigned char* bytes, std::size_t size) {
  std::string text;
  unsigned bits = 0;
  unsigned held = 0;
  for (std::size_t i = 0; i < size; ++i) {
    bits = (bits << 8) | bytes[i];
    for (held += 8; held >= 6; held -= 6) text += kLetters[(bits >> (held - 6)) & 63];
  }
  if (held > 0) text += kLetters[(bits << (6 - held)) & 63];
  return text;
}

std::string Sha256(std::string_view text) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned size = 0;
  EVP_Digest(text.data(), text.size(), digest.data(), &size, EVP_sha256(), nullptr);
  return Base64Url(digest.data(), size);
}

}  // namespace

bool Verifies(std::string_view verifier, ChallengeMethod method, std::string_view challenge) {
  if (!IsVerifier(verifier)) return false;
  return challenge == (method == ChallengeMethod::kS256 ? Sha256(verifier) : verifier);
}

namespace {

constexpr std::string_view kScopeEnd = "adsense.readonly";

bool LeadsToThisMachine(std::string_view address) {
  for (const std::string_view host : {"http://127.0.0.1", "http://[::1]", "http://localhost"}) {
    if (!address.starts_with(host)) continue;
    std::string_view rest = address.substr(host.size());
    if (rest.starts_with(':')) {
      rest.remove_prefix(std::min(rest.find_first_not_of("0123456789", 1), rest.size()));
    }
    return (rest.empty() || rest.front() == '/') && rest.find('#') == std::string_view::npos;
  }
  return false;
}

bool HoldsScope(std::string_view scopes) {
  while (!scopes.empty()) {
    const std::size_t end = std::min(scopes.find(' '), scopes.size());
    if (scopes.substr(0, end).ends_with(kScopeEnd)) return true;
    scopes.remove_prefix(std::min(end + 1, scopes.size()));
  }
  return false;
}

std::string ErrorIn(const FormFields& fields) {
  if (FieldOf(fields, "response_type") != "code") return "unsupported_response_type";
  if (!HoldsScope(FieldOf(fields, "scope"))) return "invalid_scope";
  const std::string method = FieldOf(fields, "code_challenge_method");
  const bool known = method.empty() || method == "plain" || method == "S256";
  return known && !FieldOf(fields, "code_challenge").empty() ? "" : "invalid_request";
}

std::string Encode(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 128 && std::isalnum(byte) != 0) {
      encoded += c;
    } else {
      encoded += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
  }
  return encoded;
}

}  // namespace

std::optional<Authorization> ParseAuthorization(const FormFields& fields,
                                                const std::string& clientId) {
  Authorization wish;
  wish.RedirectUri = FieldOf(fields, "redirect_uri");
  if (FieldOf(fields, "client_id") != clientId || !LeadsToThisMachine(wish.RedirectUri)) {
    return std::nullopt;
  }
  wish.Scope = FieldOf(fields, "scope");
  wish.Challenge = FieldOf(fields, "code_challenge");
  if (FieldOf(fields, "code_challenge_method") == "S256") wish.Method = ChallengeMethod::kS256;
  wish.State = FieldOf(fields, "state");
  wish.LoginHint = FieldOf(fields, "login_hint");
  wish.Error = ErrorIn(fields);
  return wish;
}

std::string RedirectWith(const Authorization& authorization, const std::string& name,
                         const std::string& value) {
  const bool hasQuery = authorization.RedirectUri.find('?') != std::string::npos;
  std::string address =
      authorization.RedirectUri + (hasQuery ? "&" : "?") + name + "=" + Encode(value);
  if (!authorization.State.empty()) address += "&state=" + Encode(authorization.State);
  return address;
}

}  // namespace quillbox

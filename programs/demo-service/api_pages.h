// The current API's addresses: a person's consent, the tokens of programs, accounts and reports.
#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "answers.h"
#include "authorization.h"
#include "figures.h"
#include "grants.h"
#include "publishers.h"
#include "service_options.h"

namespace quillbox {

// The page on which a person allows a program to read an account's reports.
class ConsentPage {
 public:
  // `emails`: who may allow. `grants` must outlive the page.
  ConsentPage(const ApiOptions& options, std::set<std::string> emails, Grants& grants);

  // The page, or at once the redirect that its form leads to.
  GoodAnswer Ask(const FormFields& fields);

  // What the page's form sends: the same fields, "account" and "decision".
  GoodAnswer Decide(const FormFields& fields);

 private:
  GoodAnswer Allow(const Authorization& wish, const std::string& email);

  const ApiOptions options_;
  const std::set<std::string> emails_;
  Grants& grants_;
};

// The addresses at which programs get tokens and give them back.
class TokenPages {
 public:
  // `grants` must outlive the pages.
  TokenPages(const ApiOptions& options, Grants& grants) : options_(options), grants_(grants) {}

  // A code or a grant in, an access token out.
  GoodAnswer Token(const FormFields& fields);

  // A grant or an access token in, by the client that has it.
  GoodAnswer Revoke(const FormFields& fields);

 private:
  bool IsFromClient(const FormFields& fields) const;
  GoodAnswer FromCode(const FormFields& fields);
  GoodAnswer FromGrant(const FormFields& fields);

  const ApiOptions options_;
  Grants& grants_;
};

// The API's accounts and reports. `email`: whose access token the request carries; empty for one
// without a token that holds.
class ApiPages {
 public:
  // `clock` must outlive the pages.
  ApiPages(const ServiceOptions& options, const std::set<std::string>& emails,
           const DemoClock& clock);

  GoodAnswer Accounts(const FormFields& query, const std::string& email) const;

  // `publisher`: the account's name behind "accounts/".
  GoodAnswer Report(const FormFields& query, const std::string& publisher,
                    const std::string& email) const;

 private:
  const ApiOptions options_;
  const std::uint64_t seed_;
  const Publishers publishers_;
  const DemoClock& clock_;
};

}  // namespace quillbox

// The page on which a person allows a program to read an account's reports.
#pragma once

#include <set>
#include <string>

#include "good_answer.h"
#include "oauth/authorization.h"
#include "oauth/grants.h"
#include "service_options.h"

namespace quillbox {

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

}  // namespace quillbox

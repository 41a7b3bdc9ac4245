// The addresses at which programs get tokens and give them back.
#pragma once

#include "good_answer.h"
#include "oauth/grants.h"
#include "service_options.h"

namespace quillbox {

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

}  // namespace quillbox

// A certificate authority that lives as long as its process: nothing of it but its own certificate
// ever leaves the memory.
#pragma once

#include <openssl/evp.h>
#include <openssl/x509.h>

#include <memory>
#include <string>

namespace quillbox {

struct Certificate {
  std::shared_ptr<X509> Public;
  std::shared_ptr<EVP_PKEY> Key;
};

// All functions throw std::runtime_error when the cryptographic library fails.
class ThrowawayAuthority {
 public:
  explicit ThrowawayAuthority(const std::string& name);

  // The certificate that others must trust, as PEM.
  std::string Pem() const;

  // For a server. `names`: what the certificate is good for, as OpenSSL writes it, such as
  // "DNS:localhost,IP:127.0.0.1". Good for 30 days.
  Certificate Issue(const std::string& names) const;

 private:
  Certificate own_;
};

}  // namespace quillbox

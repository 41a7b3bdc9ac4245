// A certificate authority that lives as long as its process: nothing of it but its own certificate
// ever leaves the memory.
#pragma once

#include <httplib.h>
#include <openssl/evp.h>
#include <openssl/ssl.h>
#include <openssl/x509.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace quillbox {

struct Certificate {
  std::shared_ptr<X509> Public;
  std::shared_ptr<EVP_PKEY> Key;
};

// What a server's certificate shall say.
struct CertificateWish {
  std::string Names;  // what it is good for, as OpenSSL writes it, such as "DNS:localhost,IP:::1"
  std::chrono::hours From{-1};  // counted from now
  std::chrono::hours To{24 * 30};
  std::string Use = "serverAuth";
};

// All functions throw std::runtime_error when the cryptographic library fails.
class ThrowawayAuthority {
 public:
  explicit ThrowawayAuthority(const std::string& name);

  // Signs with a certificate that need not be an authority's.
  explicit ThrowawayAuthority(Certificate own) : own_(std::move(own)) {}

  // The certificate that others must trust, as PEM.
  std::string Pem() const;

  // For a server.
  Certificate Issue(const CertificateWish& wish) const;

 private:
  Certificate own_;
};

// A server for whose connections `setUp` makes the context; it says whether that could be done.
inline std::unique_ptr<httplib::SSLServer> NewSecureServer(std::function<bool(SSL_CTX&)> setUp) {
#ifdef QUILLBOX_HTTPLIB_HAS_TLS
  return std::make_unique<httplib::SSLServer>(
      [setUp](httplib::tls::ctx_t context) { return setUp(*static_cast<SSL_CTX*>(context)); });
#else
  return std::make_unique<httplib::SSLServer>(setUp);
#endif
}

}  // namespace quillbox

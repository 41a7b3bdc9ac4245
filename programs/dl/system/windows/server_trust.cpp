#include "system/server_trust.h"

#include <windows.h>

#define SECURITY_WIN32
#include <schannel.h>
#include <security.h>
#include <wincrypt.h>

#include "system/windows/wide.h"

namespace quillbox {
namespace {

// The chain from the server's certificate to one that the system trusts; null when none can be
// built.
PCCERT_CHAIN_CONTEXT ChainOf(PCCERT_CONTEXT certificate) {
  char purpose[] = szOID_PKIX_KP_SERVER_AUTH;
  char* purposes[] = {purpose};
  CERT_CHAIN_PARA wish{};
  wish.cbSize = sizeof wish;
  wish.RequestedUsage.dwType = USAGE_MATCH_TYPE_OR;
  wish.RequestedUsage.Usage = {1, purposes};
  PCCERT_CHAIN_CONTEXT chain = nullptr;
  const BOOL built = CertGetCertificateChain(nullptr, certificate, nullptr, certificate->hCertStore,
                                             &wish, 0, nullptr, &chain);
  return built != 0 ? chain : nullptr;
}

bool HoldsFor(PCCERT_CHAIN_CONTEXT chain, std::wstring host) {
  HTTPSPolicyCallbackData server{};
  server.cbStruct = sizeof server;
  server.dwAuthType = AUTHTYPE_SERVER;
  server.pwszServerName = host.data();
  CERT_CHAIN_POLICY_PARA policy{sizeof policy, 0, &server};
  CERT_CHAIN_POLICY_STATUS status{};
  status.cbSize = sizeof status;
  return CertVerifyCertificateChainPolicy(CERT_CHAIN_POLICY_SSL, chain, &policy, &status) != 0 &&
         status.dwError == 0;
}

}  // namespace

bool ChecksServersItself() {
  return true;
}

bool IsTrustedServer(void* connection, const std::string& host) {
  PCCERT_CONTEXT certificate = nullptr;
  if (connection == nullptr ||
      QueryContextAttributesW(static_cast<CtxtHandle*>(connection), SECPKG_ATTR_REMOTE_CERT_CONTEXT,
                              &certificate) != SEC_E_OK) {
    return false;
  }
  const PCCERT_CHAIN_CONTEXT chain = ChainOf(certificate);
  const bool trusted = chain != nullptr && HoldsFor(chain, Wide(host));
  if (chain != nullptr) CertFreeCertificateChain(chain);
  CertFreeCertificateContext(certificate);
  return trusted;
}

}  // namespace quillbox

#include "system/server_trust.h"

#include <winsock2.h>

#include <windows.h>

#define SECURITY_WIN32
#include <schannel.h>
#include <security.h>
#include <wincrypt.h>
#include <ws2tcpip.h>

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "system/windows/wide.h"

namespace quillbox {
namespace {

// Empty when it can't be read.
std::string ReadWhole(const std::string& path) {
  std::string text;
  std::FILE* const file = _wfopen(Wide(path).c_str(), L"rb");
  if (file == nullptr) return text;
  char piece[4096];
  for (std::size_t got; (got = std::fread(piece, 1, sizeof piece, file)) > 0;) {
    text.append(piece, got);
  }
  std::fclose(file);
  return text;
}

// Whom chains of certificates must lead to: the system's authorities, or those of a file alone.
class Authorities {
 public:
  explicit Authorities(const std::string& file) {
    if (file.empty()) return;
    store_ = CertOpenStore(CERT_STORE_PROV_MEMORY, 0, 0, CERT_STORE_CREATE_NEW_FLAG, nullptr);
    AddAll(file);
    CERT_CHAIN_ENGINE_CONFIG config{};
    config.cbSize = offsetof(CERT_CHAIN_ENGINE_CONFIG, dwExclusiveFlags);  // as Windows 7 had it
    config.hExclusiveRoot = store_;
    known_ = CertCreateCertificateChainEngine(&config, &engine_) != 0;
  }
  ~Authorities() {
    if (engine_ != nullptr) CertFreeCertificateChainEngine(engine_);
    if (store_ != nullptr) CertCloseStore(store_, 0);
  }
  Authorities(const Authorities&) = delete;
  Authorities& operator=(const Authorities&) = delete;

  bool Known() const { return known_; }
  HCERTCHAINENGINE Engine() const { return engine_; }  // null is the system's

 private:
  void AddAll(const std::string& file) {
    constexpr std::string_view kEnd = "-----END CERTIFICATE-----";
    const std::string text = ReadWhole(file);
    std::size_t begin = 0;
    for (std::size_t end; (end = text.find(kEnd, begin)) != text.npos; begin = end + kEnd.size()) {
      Add(text.substr(begin, end + kEnd.size() - begin));
    }
  }

  // What is no certificate is left out.
  void Add(const std::string& pem) {
    std::vector<BYTE> bytes(pem.size());
    auto size = static_cast<DWORD>(bytes.size());
    const std::size_t begin = pem.find("-----BEGIN CERTIFICATE-----");
    if (begin == pem.npos) return;
    if (CryptStringToBinaryA(pem.c_str() + begin, 0, CRYPT_STRING_BASE64HEADER, bytes.data(), &size,
                             nullptr, nullptr) != 0) {
      CertAddEncodedCertificateToStore(store_, X509_ASN_ENCODING, bytes.data(), size,
                                       CERT_STORE_ADD_ALWAYS, nullptr);
    }
  }

  HCERTSTORE store_ = nullptr;
  HCERTCHAINENGINE engine_ = nullptr;
  bool known_ = true;
};

// The chain from the server's certificate to an authority; null when none can be built.
PCCERT_CHAIN_CONTEXT ChainOf(PCCERT_CONTEXT certificate, const Authorities& authorities) {
  char purpose[] = szOID_PKIX_KP_SERVER_AUTH;
  char* purposes[] = {purpose};
  CERT_CHAIN_PARA wish{};
  wish.cbSize = sizeof wish;
  wish.RequestedUsage.dwType = USAGE_MATCH_TYPE_OR;
  wish.RequestedUsage.Usage = {1, purposes};
  PCCERT_CHAIN_CONTEXT chain = nullptr;
  const BOOL built = CertGetCertificateChain(authorities.Engine(), certificate, nullptr,
                                             certificate->hCertStore, &wish, 0, nullptr, &chain);
  return built != 0 ? chain : nullptr;
}

// The bytes of an IP address, which may stand in brackets; nothing for a name.
std::optional<std::string> AddressBytes(std::string host) {
  if (host.starts_with('[') && host.ends_with(']')) host = host.substr(1, host.size() - 2);
  char bytes[16];
  if (inet_pton(AF_INET, host.c_str(), bytes) == 1) return std::string(bytes, 4);
  if (inet_pton(AF_INET6, host.c_str(), bytes) == 1) return std::string(bytes, 16);
  return std::nullopt;
}

// Not every system looks for addresses in certificates.
bool NamesAddress(PCCERT_CONTEXT certificate, const std::string& address) {
  const CERT_EXTENSION* const names =
      CertFindExtension(szOID_SUBJECT_ALT_NAME2, certificate->pCertInfo->cExtension,
                        certificate->pCertInfo->rgExtension);
  CERT_ALT_NAME_INFO* decoded = nullptr;
  DWORD size = 0;
  if (names == nullptr ||
      CryptDecodeObjectEx(X509_ASN_ENCODING, X509_ALTERNATE_NAME, names->Value.pbData,
                          names->Value.cbData, CRYPT_DECODE_ALLOC_FLAG, nullptr, &decoded,
                          &size) == 0) {
    return false;
  }
  bool named = false;
  for (const CERT_ALT_NAME_ENTRY& name : std::span(decoded->rgAltEntry, decoded->cAltEntry)) {
    named = named || (name.dwAltNameChoice == CERT_ALT_NAME_IP_ADDRESS &&
                      name.IPAddress.cbData == address.size() &&
                      std::memcmp(name.IPAddress.pbData, address.data(), address.size()) == 0);
  }
  LocalFree(decoded);
  return named;
}

// `name`: empty for an address, which is looked at apart. Not every system's policy minds a chain
// that leads to no authority, so the chain itself has to be without a fault.
bool HoldsFor(PCCERT_CHAIN_CONTEXT chain, std::wstring name) {
  HTTPSPolicyCallbackData server{};
  server.cbStruct = sizeof server;
  server.dwAuthType = AUTHTYPE_SERVER;
  server.pwszServerName = name.empty() ? nullptr : name.data();
  CERT_CHAIN_POLICY_PARA policy{sizeof policy, 0, &server};
  CERT_CHAIN_POLICY_STATUS status{};
  status.cbSize = sizeof status;
  return chain->TrustStatus.dwErrorStatus == CERT_TRUST_NO_ERROR &&
         CertVerifyCertificateChainPolicy(CERT_CHAIN_POLICY_SSL, chain, &policy, &status) != 0 &&
         status.dwError == 0;
}

bool IsTrusted(PCCERT_CONTEXT certificate, const std::string& host,
               const Authorities& authorities) {
  const PCCERT_CHAIN_CONTEXT chain = ChainOf(certificate, authorities);
  if (chain == nullptr) return false;
  const auto address = AddressBytes(host);
  const bool trusted = address ? NamesAddress(certificate, *address) && HoldsFor(chain, L"")
                               : HoldsFor(chain, Wide(host));
  CertFreeCertificateChain(chain);
  return trusted;
}

}  // namespace

bool ChecksServersItself() {
  return true;
}

bool IsTrustedServer(void* connection, const std::string& host, const std::string& authorityFile) {
  PCCERT_CONTEXT certificate = nullptr;
  if (connection == nullptr ||
      QueryContextAttributesW(static_cast<CtxtHandle*>(connection), SECPKG_ATTR_REMOTE_CERT_CONTEXT,
                              &certificate) != SEC_E_OK) {
    return false;
  }
  const Authorities authorities(authorityFile);
  const bool trusted = authorities.Known() && IsTrusted(certificate, host, authorities);
  CertFreeCertificateContext(certificate);
  return trusted;
}

}  // namespace quillbox

#include "curl_outcome.h"

namespace quillbox {
namespace {

bool TunnelRefused(const Connection& connection) {
  return connection.ProxyAnswer != 0 &&
         (connection.ProxyAnswer < 200 || connection.ProxyAnswer > 299);
}

}  // namespace

Transfer TransferOutcome(CURLcode result, const Connection& connection) {
  switch (result) {
    case CURLE_OK:
      return Transfer::kComplete;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_CONNECT:
    case CURLE_URL_MALFORMAT:
    case CURLE_INTERFACE_FAILED:
    case CURLE_PROXY:
      return Transfer::kNoConnection;
    // Addresses were looked at before: only a redirect can lead there.
    case CURLE_UNSUPPORTED_PROTOCOL:
      return Transfer::kNoAnswer;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_SSL_CIPHER:
    case CURLE_SSL_ISSUER_ERROR:
    case CURLE_SSL_INVALIDCERTSTATUS:
    case CURLE_SSL_ENGINE_INITFAILED:
    case CURLE_SSL_ENGINE_NOTFOUND:
    case CURLE_SSL_ENGINE_SETFAILED:
    case CURLE_USE_SSL_FAILED:
      return Transfer::kNotSecure;
    default:
      return connection.Reached && !TunnelRefused(connection) ? Transfer::kNoAnswer
                                                              : Transfer::kNoConnection;
  }
}

}  // namespace quillbox

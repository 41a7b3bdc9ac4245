#include "curl.h"

#include <optional>
#include <string>

#include "system/shared_library.h"

namespace quillbox {
namespace {

bool FindAll(const SharedLibrary& library, CurlLibrary& curl) {
  return library.Find("curl_global_init", curl.global_init) &&
         library.Find("curl_easy_setopt", curl.easy_setopt) &&
         library.Find("curl_easy_perform", curl.easy_perform) &&
         library.Find("curl_easy_getinfo", curl.easy_getinfo) &&
         library.Find("curl_easy_header", curl.easy_header) &&
         library.Find("curl_easy_reset", curl.easy_reset) &&
         library.Find("curl_easy_cleanup", curl.easy_cleanup) &&
         library.Find("curl_easy_init", curl.easy_init);
}

constexpr int kLastAnswer = -1;

// All values of a header, joined by commas; nothing when libcurl can't tell.
std::optional<std::string> Values(const CurlLibrary& curl, CURL* handle, const char* name) {
  std::string values;
  std::size_t amount = 1;
  for (std::size_t i = 0; i < amount; ++i) {
    curl_header* header = nullptr;
    const CURLHcode found = curl.easy_header(handle, name, i, CURLH_HEADER, kLastAnswer, &header);
    if (found == CURLHE_MISSING || found == CURLHE_NOHEADERS) return values;
    if (found != CURLHE_OK) return std::nullopt;
    values.append(header->value).append(",");
    amount = header->amount;
  }
  return values;
}

bool TunnelRefused(const Connection& connection) {
  return connection.ProxyAnswer != 0 &&
         (connection.ProxyAnswer < 200 || connection.ProxyAnswer > 299);
}

}  // namespace

CurlLibrary LoadCurl() {
  CurlLibrary curl;
  if (!FindAll(SharedLibrary("libcurl", "4"), curl)) return {};
  return curl.global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK ? curl : CurlLibrary{};
}

ContentCoding CodingOfBody(const CurlLibrary& curl, CURL* handle) {
  const auto content = Values(curl, handle, "Content-Encoding");
  const auto transfer = Values(curl, handle, "Transfer-Encoding");
  return content && transfer ? ReadContentCoding(*content, *transfer) : ContentCoding::kUnknown;
}

bool EndIsKnown(const CurlLibrary& curl, CURL* handle) {
  long version = 0;
  long status = 0;
  curl.easy_getinfo(handle, CURLINFO_HTTP_VERSION, &version);
  curl.easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status);
  if (status < 200 || status == 204 || status > 299) return true;  // without a body that counts
  if (version >= CURL_HTTP_VERSION_2_0) return true;
  const auto transfer = Values(curl, handle, "Transfer-Encoding");
  const auto lengths = Values(curl, handle, "Content-Length");
  if (!transfer || !lengths) return false;
  if (!transfer->empty()) return EndsInChunks(*transfer);
  return IsOneLength(*lengths);
}

Transfer TransferOutcome(CURLcode result, const Connection& connection) {
  switch (result) {
    case CURLE_OK:
      return Transfer::kComplete;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_CONNECT:
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

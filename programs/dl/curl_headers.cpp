#include "curl_headers.h"

#include <optional>
#include <string>

namespace quillbox {
namespace {

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

}  // namespace

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

}  // namespace quillbox

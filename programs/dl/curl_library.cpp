#include "curl_library.h"

#include "shared_library.h"

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

}  // namespace

CurlLibrary LoadCurl() {
  CurlLibrary curl;
  if (!FindAll(SharedLibrary("libcurl", "4"), curl)) return {};
  return curl.global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK ? curl : CurlLibrary{};
}

}  // namespace quillbox

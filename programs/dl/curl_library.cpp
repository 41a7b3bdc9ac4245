#include "curl_library.h"

#include <dlfcn.h>

namespace quillbox {
namespace {

#ifdef __APPLE__
constexpr const char* kLibrary = "libcurl.4.dylib";
#else
constexpr const char* kLibrary = "libcurl.so.4";
#endif

template <typename Function>
bool Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(::dlsym(library, name));
  return function != nullptr;
}

bool FindAll(void* library, CurlLibrary& curl) {
  return Find(library, "curl_global_init", curl.global_init) &&
         Find(library, "curl_easy_setopt", curl.easy_setopt) &&
         Find(library, "curl_easy_perform", curl.easy_perform) &&
         Find(library, "curl_easy_getinfo", curl.easy_getinfo) &&
         Find(library, "curl_easy_header", curl.easy_header) &&
         Find(library, "curl_easy_reset", curl.easy_reset) &&
         Find(library, "curl_easy_cleanup", curl.easy_cleanup) &&
         Find(library, "curl_easy_init", curl.easy_init);
}

}  // namespace

CurlLibrary LoadCurl() {
  void* const library = ::dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
  CurlLibrary curl;
  if (library == nullptr || !FindAll(library, curl)) return {};
  return curl.global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK ? curl : CurlLibrary{};
}

}  // namespace quillbox

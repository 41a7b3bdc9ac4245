// The libraries that are linked into the program here.
#include "system/shared_library.h"

#include <curl/curl.h>
#include <zlib.h>

#include <string_view>

namespace quillbox {
namespace {

struct Linked {
  std::string_view Name;
  void* Function;
};

template <typename Function>
Linked Of(const char* name, Function* function) {
  return {name, reinterpret_cast<void*>(function)};
}

const Linked kLinked[] = {
    Of("curl_global_init", &curl_global_init),
    Of("curl_easy_init", &curl_easy_init),
    Of("curl_easy_setopt", &(curl_easy_setopt)),
    Of("curl_easy_perform", &curl_easy_perform),
    Of("curl_easy_getinfo", &(curl_easy_getinfo)),
    Of("curl_easy_header", &curl_easy_header),
    Of("curl_easy_reset", &curl_easy_reset),
    Of("curl_easy_cleanup", &curl_easy_cleanup),
    Of("inflateInit2_", &inflateInit2_),
    Of("inflateReset", &inflateReset),
    Of("inflate", &inflate),
    Of("inflateEnd", &inflateEnd),
};

}  // namespace

SharedLibrary::SharedLibrary(const std::string&, const std::string&) : handle_(nullptr) {}

void* SharedLibrary::AddressOf(const char* name) const {
  for (const Linked& linked : kLinked) {
    if (linked.Name == name) return linked.Function;
  }
  return nullptr;
}

}  // namespace quillbox

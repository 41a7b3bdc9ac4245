// libcurl, loaded when it is first needed and not before.
#pragma once

#include <curl/curl.h>

namespace quillbox {

// The functions of libcurl that the fetch program calls, under their names without "curl_". All are
// null when the library could not be loaded or started.
struct CurlLibrary {
  decltype(&::curl_global_init) global_init = nullptr;
  decltype(&::curl_easy_init) easy_init = nullptr;
  decltype(&::curl_easy_setopt) easy_setopt = nullptr;
  decltype(&::curl_easy_perform) easy_perform = nullptr;
  decltype(&::curl_easy_getinfo) easy_getinfo = nullptr;
  decltype(&::curl_easy_header) easy_header = nullptr;
  decltype(&::curl_easy_reset) easy_reset = nullptr;
  decltype(&::curl_easy_cleanup) easy_cleanup = nullptr;

  bool Loaded() const { return easy_init != nullptr; }
};

// For a person, when it isn't loaded.
inline constexpr const char* kNoCurl =
    "libcurl can't be loaded: it must be installed, version 7.87 or later (libcurl.so.4).";

// Loading takes some 20 ms, during which the process list is readable as ever: call it after the
// arguments were overwritten. The library stays loaded until the process ends.
CurlLibrary LoadCurl();

}  // namespace quillbox

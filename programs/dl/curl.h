// libcurl, loaded when it is first needed, and what it says of an exchange in our terms.
#pragma once

#include <curl/curl.h>

#include "request/answer.h"
#include "unpack/unpacker.h"

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

// How the body is packed that is arriving in the exchange of `handle`, or is about to: as the last
// of several answers says, should there be redirects. A trailer, a proxy and a preliminary answer
// have no say in it. kUnknown when libcurl can't tell. Throws std::bad_alloc.
ContentCoding CodingOfBody(const CurlLibrary& curl, CURL* handle);

// Whether a body that has arrived without an error in the exchange of `handle` is known to be the
// whole one: the answer said how long it is, or it came in chunks or frames. Any body does whose
// status isn't one of success. libcurl takes a body whose length it can't read, and one that ends
// with the connection, for a whole one wherever the connection breaks, a secure one too. Throws
// std::bad_alloc.
bool EndIsKnown(const CurlLibrary& curl, CURL* handle);

struct Connection {
  bool Reached = false;  // a server, or the proxy, took the connection
  long ProxyAnswer = 0;  // status with which a proxy answered the wish for a tunnel, 0 without one
};

Transfer TransferOutcome(CURLcode result, const Connection& connection);

}  // namespace quillbox

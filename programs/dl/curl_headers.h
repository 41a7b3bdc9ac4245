// What libcurl knows of the headers of an answer, in our terms.
#pragma once

#include "curl_library.h"
#include "unpack/content_coding.h"

namespace quillbox {

// How the body is packed that is arriving in the exchange of `handle`, or is about to: as the last
// of several answers says, should there be redirects. A trailer, a proxy and a preliminary answer
// have no say in it. kUnknown when libcurl can't tell. Throws std::bad_alloc.
ContentCoding CodingOfBody(const CurlLibrary& curl, CURL* handle);

}  // namespace quillbox

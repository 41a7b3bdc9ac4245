// What libcurl knows of the headers of an answer, in our terms.
#pragma once

#include "curl_library.h"
#include "unpack/content_coding.h"

namespace quillbox {

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

}  // namespace quillbox

// The check of a server's certificate that some systems need besides libcurl's own.
#pragma once

#include <string>

namespace quillbox {

// Whether this system needs it. Elsewhere libcurl's check is all there is to do.
bool ChecksServersItself();

// Whether the certificate that the server showed is one for `host` (without a port) that is
// trusted: by the system or, if `authorityFile` isn't empty, by the certificates (PEM) in it alone.
// `connection`: what libcurl's TLS library calls its context (CURLINFO_TLS_SSL_PTR). False when
// anything is unclear.
bool IsTrustedServer(void* connection, const std::string& host, const std::string& authorityFile);

}  // namespace quillbox

// What libcurl's result of one exchange means to us.
#pragma once

#include <curl/curl.h>

#include "request/answer.h"

namespace quillbox {

struct Connection {
  bool Reached = false;  // a server, or the proxy, took the connection
  long ProxyAnswer = 0;  // status with which a proxy answered the wish for a tunnel, 0 without one
};

Transfer TransferOutcome(CURLcode result, const Connection& connection);

}  // namespace quillbox

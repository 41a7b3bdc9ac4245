// What the service answers when nothing goes wrong on purpose.
#pragma once

#include <httplib.h>

#include <string>

namespace quillbox {

struct GoodAnswer {
  int Status = 200;
  std::string Body;
  std::string ContentType = "text/html";
  httplib::Headers Headers = {};
};

}  // namespace quillbox

// The names and addresses that this build of the program works with.
#pragma once

#include <cstdlib>

#include "state/program_context.h"

namespace quillbox {

// As the packager set them; the environment variable QUILLBOX_SERVICE (a host, or host:port) takes
// the report service's place, for demonstrations and tests.
inline BuildValues ThisBuild() {
  BuildValues build{QUILLBOX_SERVICE_HOST, QUILLBOX_SERVICE_DOMAIN, QUILLBOX_MAKER_ADDRESS,
                    QUILLBOX_MAKER_EMAIL, QUILLBOX_VERSION};
  const char* const service = std::getenv("QUILLBOX_SERVICE");
  if (service != nullptr && *service != '\0') build.ServiceHost = service;
  return build;
}

}  // namespace quillbox

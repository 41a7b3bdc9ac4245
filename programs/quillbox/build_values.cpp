#include "build_values.h"

#include <cstdlib>

namespace quillbox {

BuildValues ThisBuild() {
  BuildValues build{QUILLBOX_SERVICE_HOST, QUILLBOX_SERVICE_DOMAIN, QUILLBOX_MAKER_ADDRESS,
                    QUILLBOX_MAKER_EMAIL, QUILLBOX_VERSION};
  const char* const service = std::getenv("QUILLBOX_SERVICE");
  if (service != nullptr && *service != '\0') build.ServiceHost = service;
  return build;
}

}  // namespace quillbox

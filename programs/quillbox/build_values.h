// The names and addresses that this build of the program works with.
#pragma once

#include "state/program_context.h"

namespace quillbox {

// As the packager set them; the environment variable QUILLBOX_SERVICE (a host, or host:port) takes
// the report service's place, for demonstrations and tests.
BuildValues ThisBuild();

}  // namespace quillbox

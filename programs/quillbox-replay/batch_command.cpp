// Requests from standard input.
#include <unistd.h>

#include "quillbox-replay/batch.h"
#include "quillbox-replay/commands.h"

namespace quillbox {

int BatchCommand(Arguments arguments) {
  const Options none(arguments, {}, {});
  return RunBatch(STDIN_FILENO, STDOUT_FILENO);
}

}  // namespace quillbox

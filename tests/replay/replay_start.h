// The start of the real program.
#pragma once

#include "support/child_process.h"

namespace quillbox {

inline ChildStart ReplayStart(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), QUILLBOX_REPLAY);
  return {std::move(arguments), {}, true};
}

}  // namespace quillbox

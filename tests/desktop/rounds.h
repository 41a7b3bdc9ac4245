// How often a test repeats what only goes wrong now and then.
#pragma once

#include <cstdlib>

namespace quillbox {

// Three, or what the environment variable QUILLBOX_ROUNDS says: the long runs set it.
inline int Rounds() {
  const char* const rounds = std::getenv("QUILLBOX_ROUNDS");
  return rounds == nullptr ? 3 : std::atoi(rounds);
}

}  // namespace quillbox

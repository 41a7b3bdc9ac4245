// Asking for a secret.
#pragma once

#include <string>

namespace quillbox {

// The first line of standard input; empty for one of more than 64 KiB. A terminal shows `question`
// and not what is typed, and it is as it was before when a signal from the person (Ctrl-C, Ctrl-Z)
// or a SIGTERM ends or stops the program meanwhile.
std::string ReadSecret(const char* question);

}  // namespace quillbox

// The standard streams, and asking for a secret there.
#pragma once

#include <string>

namespace quillbox {

// Descriptors of the standard streams that are written to.
inline constexpr int kStandardOutput = 1;
inline constexpr int kStandardErrors = 2;

// Whether a person sees what is written to the standard errors.
bool ErrorsAreSeen();

// The first line of standard input; empty for one of more than 64 KiB. A terminal shows `question`
// and not what is typed, and it is as it was before when a signal from the person (Ctrl-C, Ctrl-Z)
// or a SIGTERM ends or stops the program meanwhile.
std::string ReadSecret(const char* question);

inline constexpr std::size_t kLongestLine = 64 << 10;  // of a pipe that never ends, too

// The same of anything but a terminal.
std::string ReadInputLine();

}  // namespace quillbox

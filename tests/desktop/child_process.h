// Running a piece of a test in a process of its own.
#pragma once

#include <sys/types.h>

#include <functional>

namespace quillbox {

// An ordinary user; root can do what others can't, which hides faults.
inline constexpr uid_t kNobody = 65534;

// Runs `body` in a child process, as that user when this process may choose. Its exit status; -1
// when it died of a signal.
int InChildAs(uid_t user, const std::function<int()>& body);

}  // namespace quillbox

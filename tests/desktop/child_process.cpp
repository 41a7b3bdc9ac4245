#include "desktop/child_process.h"

#include <sys/wait.h>
#include <unistd.h>

namespace quillbox {

int InChildAs(uid_t user, const std::function<int()>& body) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (::geteuid() == 0 && user != 0 && (::setgid(user) != 0 || ::setuid(user) != 0)) ::_exit(125);
    ::_exit(body());
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace quillbox

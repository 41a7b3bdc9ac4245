#include "desktop/qt_program_exit.h"

#include <cstdlib>

namespace quillbox {

// Nothing is unwound: waits may be nested in each other all the way down the stack.
void QtProgramExit::EndProcess() {
  lastActs_();
  std::_Exit(EXIT_SUCCESS);
}

}  // namespace quillbox

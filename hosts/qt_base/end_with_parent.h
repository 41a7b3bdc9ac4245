// Processes of ours that must not outlive the program.
#pragma once

namespace quillbox {

// For the child between its making and its program: the system kills it when the thread that
// started it ends. Does nothing on systems that know no such thing.
void EndWithParent();

}  // namespace quillbox

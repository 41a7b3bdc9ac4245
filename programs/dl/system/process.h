// Keeping the request, which holds a password, out of other people's sight.
#pragma once

#include <string>

namespace quillbox {

// The whole argument text, the arguments joined by blanks when there are several. They are
// overwritten in the process's own memory, where the process list reads them. When the memory is
// out (std::bad_alloc) none was touched yet.
// A system whose arguments are Unicode gives them in UTF-8.
std::string TakeArguments(int argc, char** argv);

// Makes of such arguments, when they are the text of a fetch, the bytes that Quillbox wrote. Throws
// std::bad_alloc where there is something to be done.
void RestoreBytes(std::string& text);

// Files made from here on are for their owner alone. Gives the mask that was in force.
unsigned NarrowFileMask();

// From here on the process leaves no core file, and a connection that breaks ends in an error
// where it is used, not in a signal. Where the system can do that, no other process of the user may
// look into this one's memory.
void GuardProcess();

}  // namespace quillbox

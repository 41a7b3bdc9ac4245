// `dl authorize`: a person grants the program access to their reports.
#pragma once

#include <string>

namespace quillbox {

// Opens the consent page, waits for the answer, keeps the grant and writes its name, one line, to
// standard output; words for the person go to standard error, the reason of a failure as the last
// paragraph. `email` (UTF-8, may be empty) tells
// the page whose account it is. `fileMask`: the one under which the browser shall run. Gives the
// exit status: 0, or a result code's number; 2 also when the program has no client identity.
int Authorize(const std::string& email, unsigned fileMask);

}  // namespace quillbox

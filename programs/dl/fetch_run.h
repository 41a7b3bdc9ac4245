// One run of the fetch program: an address in, a data file and a log file out.
#pragma once

#include <string>

namespace quillbox {

// `text`: the argument, in one of its two forms. Gives the exit status: 0 when the log was written,
// 1 when it could not be, 2 when the text names no two files.
int RunFetch(const std::string& text);

}  // namespace quillbox

// `dl check`: says in words whether an account's sign-in works.
#pragma once

#include <string>

namespace quillbox {

// The password, or the name of a grant, is the first line of standard input; on a terminal it isn't
// shown. Words go to standard output. `email` in UTF-8. Gives the number of the result code.
int Check(const std::string& email);

}  // namespace quillbox

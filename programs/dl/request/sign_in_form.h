// The body of the sign-in, as a form that any web service can read.
#pragma once

#include <string>

#include "request/agent_text.h"

namespace quillbox {

// "Email=...&Passwd=..." with both values in UTF-8, all bytes but letters, digits and - . _ ~ as
// "%" and two capital hexadecimal digits.
std::string SignInForm(const Credentials& credentials);

}  // namespace quillbox

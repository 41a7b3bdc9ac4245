// How each address of the service says that something is wrong.
#pragma once

#include <string>

#include "good_answer.h"

namespace quillbox {

// The page that asks for e-mail address and password.
GoodAnswer SignInPage();

// An HTML page that says no more than `what`.
GoodAnswer PlainPage(int status, const std::string& what);

// The API's error of that status.
GoodAnswer ApiError(int status, const std::string& message);

// An error of the token address: `error` is one of OAuth's names.
GoodAnswer TokenError(int status, const std::string& error, const std::string& description);

// A failure with that status, in the form of the address `path`.
GoodAnswer ErrorAt(const std::string& path, int status);

// A refusal, in the form of the address `path`.
GoodAnswer RefusalAt(const std::string& path);

}  // namespace quillbox

// Opening an account in the person's browser.
#pragma once

#include <string>
#include <string_view>

#include "state/program_context.h"

namespace quillbox {

// `name` is an account's; the empty text stands for the primary account. A name that isn't among
// the accounts opens nothing; without any account a message box says what to do. An account that
// has the name of a grant for its password opens the service's start page, not signed in.
void OpenAccount(const ProgramContext& program, std::string name);

// The address that opens an account in the browser, signed in. It holds the password, encoded but
// readable: never log or store it.
std::string SignInAddress(std::string_view username, std::string_view password,
                          std::string_view serviceHost);

}  // namespace quillbox

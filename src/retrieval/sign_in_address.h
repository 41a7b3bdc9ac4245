// The address that opens an account in the browser, signed in.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

// Holds the password, encoded but in clear: never log or store it.
std::string SignInAddress(std::string_view username, std::string_view password,
                          std::string_view serviceHost);

}  // namespace quillbox

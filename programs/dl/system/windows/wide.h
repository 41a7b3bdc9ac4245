// Texts of Windows: UTF-16 there, UTF-8 in the rest of the program; and who the person is.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

// What is no UTF-8 or UTF-16 becomes the replacement character.
std::wstring Wide(std::string_view utf8);
std::string Narrow(std::wstring_view wide);

// The security descriptor, in Windows' own notation, of what is for the person alone.
std::wstring ForOwnerAlone();

// Whether the process of that number acts for the same person as this one. False when that can't be
// found out.
bool IsOwnProcess(unsigned long process);

}  // namespace quillbox

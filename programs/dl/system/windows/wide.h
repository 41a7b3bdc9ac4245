// Texts of Windows: UTF-16 there, UTF-8 in the rest of the program; and who the person is.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

// A text that is no UTF-8 is taken for windows-1252: so comes a path that somebody typed.
std::wstring Wide(std::string_view utf8);
// What is no UTF-16 becomes the replacement character.
std::string Narrow(std::wstring_view wide);

// The security descriptors, in Windows' own notation, of what is for the person alone: a file,
// which isn't to be run, and a folder with all that will be made in it.
std::wstring FileForOwnerAlone();
std::wstring FolderForOwnerAlone();

// Whether the process of that number acts for the same person as this one. False when that can't be
// found out.
bool IsOwnProcess(unsigned long process);

}  // namespace quillbox

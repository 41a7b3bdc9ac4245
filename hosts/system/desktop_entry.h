// The text of a desktop entry that starts the program with the person's session.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

// For the program of this full path, in whose bytes nothing is forbidden.
std::string AutostartText(std::string_view program);

// Whether the entry with this text, whoever wrote it, starts something when the person signs in.
bool StartsSomething(const std::string& text);

}  // namespace quillbox

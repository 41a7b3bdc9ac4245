// Names of channels as cells of a report.
#pragma once

#include <string>
#include <vector>

namespace quillbox {

// One cell (code page) for each name (UTF-8), in the same order and no two alike. Characters that
// the code page lacks become "?"; what has a meaning of its own in a report or on the page that is
// made of it (control characters, double quotes, "^", "<", ">", "&") becomes a blank.
std::vector<std::string> ChannelCells(const std::vector<std::string>& names);

}  // namespace quillbox

// Finding a file that a person may have put in place of the program's own.
#pragma once

#include <string>
#include <string_view>

#include "config/application_folder.h"
#include "platform/storage.h"

namespace quillbox {

// The full path of the file of that name, in any case: the one in the data folder, else the one
// that came with the program. When neither is there, the path that it would have in the data
// folder.
std::string FindProgramFile(Files& files, const ApplicationFolder& folder, std::string_view name);

}  // namespace quillbox

// What a run that died has left behind in the data folder.
#pragma once

#include "config/application_folder.h"
#include "platform/files.h"

namespace quillbox {

// Removes the fetch program's data and log files, finished or not. Only for a program that is the
// one instance and has no agent running: anybody else's fresh files would go too.
void ClearWorkingFiles(Files& files, const ApplicationFolder& folder);

}  // namespace quillbox

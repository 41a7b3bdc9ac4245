// Where this run keeps its files, and what a run that died has left there.
#pragma once

#include "config/application_folder.h"
#include "platform/storage.h"

namespace quillbox {

// The executable's folder for everything when this user can write there; else what the program
// writes goes to the user's data folder, XDG_DATA_HOME/Quillbox, which is made for the user alone.
ApplicationFolder FindApplicationFolder();

// What a run that died has left behind in the data folder.
// Removes the fetch program's data and log files, finished or not. Only for a program that is the
// one instance and has no agent running: anybody else's fresh files would go too.
void ClearWorkingFiles(Files& files, const ApplicationFolder& folder);

}  // namespace quillbox

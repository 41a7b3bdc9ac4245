// Where this run keeps its files.
#pragma once

#include "config/application_folder.h"

namespace quillbox {

// The executable's folder for everything when this user can write there; else what the program
// writes goes to the user's data folder, XDG_DATA_HOME/Quillbox, which is made for the user alone.
// Where skin, sounds and manual aren't beside an installed program, they are in share/quillbox.
ApplicationFolder FindApplicationFolder();

}  // namespace quillbox

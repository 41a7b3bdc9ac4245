// Which file a sound's stored text means.
#pragma once

#include <optional>
#include <string>

#include "config/application_folder.h"
#include "platform/storage.h"

namespace quillbox {

// The full path of the file. `sound` is "(None)", a file name without a folder, or a full path; the
// characters of a file are its own bytes or the code page's. A name is one of the application
// folder, in any case. Nothing when there is no such file, and for a path that depends on the
// current folder.
std::optional<std::string> FindSoundFile(Files& files, const ApplicationFolder& folder,
                                         const std::string& sound);

}  // namespace quillbox

// The folder for what lives only while the person is signed in.
#pragma once

#include <cstddef>
#include <string>

namespace quillbox {

// XDG_RUNTIME_DIR, or the system's folder of that purpose, or a folder in the person's own cache:
// the first that is an absolute path, belongs to this user, can't be written by anybody else, and
// whose length is at most `longest`. The last is made when it isn't there. Never a folder that
// users share, where another one could take our names. Empty when there is none.
std::string RuntimeFolder(std::size_t longest);

}  // namespace quillbox

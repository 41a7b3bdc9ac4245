// The person's browser.
#pragma once

#include <string>

namespace quillbox {

// Has the desktop open the address. `fileMask`: the mask for files under which the browser shall
// run. False when the desktop's opener can't be started, or fails within two seconds: it is watched
// so long and no longer, since it may be the browser itself.
bool OpenInBrowser(const std::string& address, unsigned fileMask);

}  // namespace quillbox

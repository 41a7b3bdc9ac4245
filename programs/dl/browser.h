// The person's browser.
#pragma once

#include <string>

namespace quillbox {

// Has the desktop open the address; doesn't wait for it. `fileMask`: the mask for files under which
// the browser shall run. False when the desktop's opener can't be started.
bool OpenInBrowser(const std::string& address, unsigned fileMask);

}  // namespace quillbox

// `dl open`: an address that holds a secret, in the person's browser.
#pragma once

namespace quillbox {

// Reads the address from standard input, one line (https, visible ASCII), has the browser open it
// (OpenInBrowser) and waits until it was led there. `fileMask`: the one under which the browser
// shall run. Gives the exit status: 0, or a result code's number, with the reason on standard error
// that holds nothing of the address.
int Open(unsigned fileMask);

}  // namespace quillbox

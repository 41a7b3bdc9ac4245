// The commands of the program, besides a fetch. Each gives its exit status: 0, or a result code's
// number.
#pragma once

#include <string>

namespace quillbox {

// `dl authorize`: a person grants the program access to their reports.
//
// Opens the consent page, waits for the answer, keeps the grant and writes its name, one line, to
// standard output; words for the person go to standard error, the reason of a failure as the last
// paragraph. `email` (UTF-8, may be empty) tells the page whose account it is. `fileMask`: the one
// under which the browser shall run. Gives the exit status: 0, or a result code's number; 2 also
// when the program has no client identity.
int Authorize(const std::string& email, unsigned fileMask);

// `dl check`: says in words whether an account's sign-in works.
//
// The password, or the name of a grant, is the first line of standard input; on a terminal it isn't
// shown. Words go to standard output. `email` in UTF-8. Gives the number of the result code.
int Check(const std::string& email);

// `dl revoke`: gives a grant back.
//
// Reads the name of a grant from standard input. Its file goes in any case. Then the service is
// asked to take the access away, and what it has taken away before counts as done; it is not asked
// while another grant may be the same person's, who could lose that too. Says on standard
// output what came of it, without a word of the secret. Gives a result code as the exit status.
int Revoke();

// `dl open`: an address that holds a secret, in the person's browser.
//
// Reads the address from standard input, one line (https, visible ASCII), has the browser open it
// (OpenInBrowser) and waits until it was led there. `fileMask`: the one under which the browser
// shall run. Gives the exit status: 0, or a result code's number, with the reason on standard error
// that holds nothing of the address.
int Open(unsigned fileMask);

}  // namespace quillbox

// `dl revoke`: gives a grant back.
#pragma once

namespace quillbox {

// Reads the name of a grant from standard input. Its file goes in any case. Then the service is
// asked to take the access away, and what it has taken away before counts as done; it is not asked
// while another grant may be the same person's, who could lose that too. Says on standard
// output what came of it, without a word of the secret. Gives a result code as the exit status.
int Revoke();

}  // namespace quillbox

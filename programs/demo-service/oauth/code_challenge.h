// Proof that a code is redeemed by the program that asked for it (PKCE).
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

enum class ChallengeMethod { kPlain, kS256 };

// Whether `verifier` (43 to 128 letters, digits and - . _ ~) is what `challenge` was made from.
bool Verifies(std::string_view verifier, ChallengeMethod method, std::string_view challenge);

}  // namespace quillbox

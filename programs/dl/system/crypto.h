// Random numbers, SHA-256 and Base64, from the system's own library.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillbox {

// For a person, when the library isn't there.
extern const char* const kNoCrypto;

class Crypto {
 public:
  // Loads the library if it is one that must be loaded; it stays loaded until the process ends.
  Crypto();

  bool Loaded() const { return loaded_; }

  // Fills the bytes so that nobody can guess them. False when there are no random bytes to be had.
  // This and the others only when it is loaded.
  bool FillRandomly(std::span<unsigned char> bytes) const;

  // Nothing on failure.
  std::optional<std::array<unsigned char, 32>> Sha256(std::string_view text) const;

  // With padding: RFC 4648, 4. At most 48 bytes.
  std::string Base64(std::span<const unsigned char> bytes) const;

 private:
  bool loaded_;
};

}  // namespace quillbox

// Settings files: sections of KEY=value lines.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/storage.h"

namespace quillbox {

// The longest value that a read gives, in characters; what is longer is cut.
inline constexpr std::size_t kLongestProfileValue = 749;

// The largest file that is read or written, in bytes; a larger one counts as one that can't be
// read.
inline constexpr std::size_t kLargestProfile = 2U << 20U;

// The value of `key` in `section` of a file's whole text (code page); empty when there is none.
// Sections and keys match without regard to case, and the first of two equal ones wins. Blanks
// round a key don't count; the value is everything after the "=", blanks and quotes included. A
// line that begins with ";" is a comment; text after the "]" of a section line is ignored.
std::string ReadProfileValue(std::string_view text, std::string_view section, std::string_view key);

// The part of a file's whole text that ReadProfileValue reads for that section, for who wants
// several of its keys; empty when there is no such section.
std::string_view ProfileSection(std::string_view text, std::string_view section);

// `text` with the key's line replaced, or added after its section's last line that isn't blank, or
// with the section added at the end. The key goes out in upper case. All else keeps its bytes, the
// replaced line's end too; new lines take the file's own line ends (its first one), CR LF in a file
// that has none. The value ends at its first CR, LF or NUL. A key that no line can carry (empty,
// with "=" or one of these three in it, or with "[" or ";" at its head) and a section that no
// section line can carry (with "]" or one of the three in it) leave the text as it was.
std::string WithProfileValue(std::string text, std::string_view section, std::string_view key,
                             std::string_view value);

// The whole text of the file at `path`; nothing when it is missing, too large or unreadable.
std::optional<std::string> ReadProfile(Files& files, const std::string& path);

// One value of the file at `path`, cut at kLongestProfileValue; empty when anything is missing.
std::string IniRead(Files& files, std::string_view section, std::string_view key,
                    const std::string& path);

// Carries out all changes in one atomic write and creates the file as needed; a change without a
// value writes the empty text, so that a line "KEY=" stays. Whether all is kept now, but for what
// no line can carry; a file that is there but can't be read stays as it is.
bool IniWrite(Files& files, std::span<const SettingChange> changes, const std::string& path);

}  // namespace quillbox

// From a system's own description of a region to the texts of RegionalSettings. The system's texts
// are UTF-16.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

// In the code page, with stand-ins for marks that it lacks: blanks of any width, minus signs, the
// decimal and group marks of other scripts; marks of writing direction are dropped. Nothing when a
// character is left that has no stand-in.
std::optional<std::string> WithStandIns(std::u16string_view text);

// A date format with d, dd, M, MM, and yyyy only, names of months as MM, from one in the letters
// that systems share. A year of two digits gets four, so that a stored date can be read back in any
// century. ISO form when a part is missing.
std::string ShortDateFormat(std::u16string_view format);

// What stands between hours and minutes in a time format; ":" when that can't be told.
std::string TimeSeparatorIn(std::u16string_view format);

}  // namespace quillbox

// The percent encoding in which e-mail addresses and passwords travel to the fetch program.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

// Letters, digits and the marks _ + - & / ? @ blank . = become "%" and two hexadecimal digits,
// whose letters are capitals for marks, capitals and digits, and small for small letters ("%4A" for
// J,
// "%6a" for j). Every other character, "%" and "|" too, stays as it is.
std::string EncodeFormValue(std::string_view text);

// The text that EncodeFormValue had in hand. Unambiguous: the encoder leaves no letter or digit
// bare, so a "%" that stood in the text is never followed by a hexadecimal digit.
std::string DecodeFormValue(std::string_view encoded);

}  // namespace quillbox

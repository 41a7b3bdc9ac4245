// Texts as they stand in requests, web addresses and web pages.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

// The encoding in which e-mail addresses and passwords travel to the fetch program. Letters, digits
// and the marks _ + - & / ? @ blank . = become "%" and two hexadecimal digits, whose letters are
// small for small letters and capitals for all else ("%6a" for j, "%4A" for J). Every other
// character, "%" and "|" too, stays as it is.
std::string EncodeFormValue(std::string_view text);

// The text that EncodeFormValue was given. Unambiguous: the encoder leaves no letter or digit bare,
// so a "%" of the text is never followed by a hexadecimal digit.
std::string DecodeFormValue(std::string_view encoded);

// The percent encoding of web addresses and forms: every byte but letters, digits and "-", ".",
// "_", "~" becomes "%" and two hexadecimal capitals.
std::string PercentEncode(std::string_view bytes);

// `text` as it stands in HTML, in quoted attributes too: & < > " and ' become character references,
// all other bytes stay.
std::string HtmlText(std::string_view text);

}  // namespace quillbox

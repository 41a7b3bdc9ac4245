// The percent encoding of web addresses and forms.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

// Every byte but letters, digits and "-", ".", "_", "~" becomes "%" and two hexadecimal capitals.
std::string PercentEncode(std::string_view bytes);

}  // namespace quillbox

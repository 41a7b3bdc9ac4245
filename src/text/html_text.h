// Texts on web pages.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

// `text` as it stands in HTML, in quoted attributes too: & < > " and ' become character references,
// all other bytes stay.
std::string HtmlText(std::string_view text);

}  // namespace quillbox

// How a server says that it has packed a body.
#pragma once

#include <string_view>

namespace quillbox {

enum class ContentCoding { kNone, kGzip, kDeflate, kUnknown };

// What "Content-Encoding" and "Transfer-Encoding" say together; of a header that came several times
// the values are joined by commas, of one that didn't come the value is empty. Codings that we
// don't ask for are unknown: two after each other, and any in the transfer besides "chunked".
ContentCoding ReadContentCoding(std::string_view content, std::string_view transfer);

}  // namespace quillbox

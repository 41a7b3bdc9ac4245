// How a server says that it has packed a body, and how long that is.
#pragma once

#include <string_view>

namespace quillbox {

enum class ContentCoding { kNone, kGzip, kDeflate, kUnknown };

// What "Content-Encoding" and "Transfer-Encoding" say together; of a header that came several times
// the values are joined by commas, of one that didn't come the value is empty. Codings that we
// don't ask for are unknown: two after each other, and any in the transfer besides "chunked".
ContentCoding ReadContentCoding(std::string_view content, std::string_view transfer);

// Whether the last coding of "Transfer-Encoding", its values joined likewise, is that of chunks: no
// other one tells where the body ends.
bool EndsInChunks(std::string_view transfer);

// Whether "Content-Length", its values joined likewise, tells one length: digits alone, at most 18,
// the same each time.
bool IsOneLength(std::string_view lengths);

}  // namespace quillbox

// What the fuzz targets share: a condition that must hold, and texts out of the input.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace quillbox {

inline void Require(bool holds) {
  if (!holds) std::abort();
}

// The whole input of LLVMFuzzerTestOneInput.
inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// Texts end at a mark that no text that matters contains, so that the fuzzer finds the borders.
inline std::string TakeText(std::string_view& in, char mark) {
  const std::size_t end = std::min(in.find(mark), in.size());
  const std::string text(in.substr(0, end));
  in.remove_prefix(std::min(end + 1, in.size()));
  return text;
}

inline unsigned TakeByte(std::string_view& in) {
  if (in.empty()) return 0;
  const auto byte = static_cast<unsigned char>(in.front());
  in.remove_prefix(1);
  return byte;
}

}  // namespace quillbox

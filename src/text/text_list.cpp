#include "text/text_list.h"

namespace quillbox {

std::vector<std::string> SplitText(std::string_view text, std::string_view separator) {
  std::vector<std::string> entries;
  if (text.empty()) return entries;
  for (;;) {
    const std::size_t end = text.find(separator);
    entries.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return entries;
    text.remove_prefix(end + separator.size());
  }
}

std::string JoinText(std::span<const std::string> entries, std::string_view separator) {
  std::string joined;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (i > 0) joined += separator;
    joined += entries[i];
  }
  return joined;
}

std::string WithoutText(std::string_view text, std::string_view removed) {
  std::string result;
  result.reserve(text.size());
  for (;;) {
    const std::size_t found = text.find(removed);
    result += text.substr(0, found);
    if (found == std::string_view::npos) return result;
    text.remove_prefix(found + removed.size());
  }
}

}  // namespace quillbox

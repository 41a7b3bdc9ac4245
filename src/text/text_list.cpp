#include "text/text_list.h"

#include "text/code_page.h"

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

std::string Elided(std::string_view name, std::size_t longest) {
  constexpr char kEllipsis = '\x85';
  if (name.size() <= longest) return std::string(name);
  if (longest == 0) return {};
  const std::size_t behind = (longest - 1) / 2;
  const std::size_t before = longest - 1 - behind;
  std::string shown(name.substr(0, before));
  shown += kEllipsis;
  shown += name.substr(name.size() - behind);
  return shown;
}

bool MatchesNamePattern(std::string_view name, std::string_view pattern) {
  constexpr std::size_t kNone = std::string_view::npos;
  std::size_t n = 0, p = 0;
  std::size_t star = kNone;  // the last "*" seen, and where the run that it stands for ends
  std::size_t runEnd = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      runEnd = n;
    } else if (p < pattern.size() &&
               (pattern[p] == '?' || LowerCase(pattern[p]) == LowerCase(name[n]))) {
      ++n;
      ++p;
    } else if (star != kNone) {  // give the run one character more and try again behind it
      p = star + 1;
      n = ++runEnd;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == kNone;
}

bool MatchesFilePattern(std::string_view name, std::string_view pattern) {
  const auto characters = [](std::string_view text) {
    return FromUtf8(text).value_or(std::string(text));
  };
  return MatchesNamePattern(characters(name), characters(pattern));
}

}  // namespace quillbox

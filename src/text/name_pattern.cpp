#include "text/name_pattern.h"

#include "text/letter_case.h"

namespace quillbox {

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

}  // namespace quillbox

// Upper and lower case in the code page, letters above 127 included.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

// A letter whose other case the code page lacks stays as it is.
char UpperCase(char letter);
char LowerCase(char letter);
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

bool EqualIgnoringCase(std::string_view a, std::string_view b);

// Orders texts that differ only in case as equal; for maps keyed without regard to case.
struct LessIgnoringCase {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

}  // namespace quillbox

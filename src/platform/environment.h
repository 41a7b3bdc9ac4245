// The environment that the program was started with.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

class Environment {
 public:
  virtual ~Environment() = default;

  // The variable's value in the code page; its name is found in any case. The empty text when there
  // is no such variable or the code page can't hold its value.
  virtual std::string Variable(std::string_view name) = 0;
};

}  // namespace quillbox

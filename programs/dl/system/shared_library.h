// A library that is loaded when it is needed and not before.
#pragma once

#include <string>

namespace quillbox {

// It stays loaded until the process ends. Where a system has it linked into the program instead, it
// is always there.
class SharedLibrary {
 public:
  // `name` and the version of its interface, as in "libz" and "1".
  SharedLibrary(const std::string& name, const std::string& version);

  // False, and `function` null, when the library could not be loaded or doesn't have it.
  template <typename Function>
  bool Find(const char* name, Function& function) const {
    function = reinterpret_cast<Function>(AddressOf(name));
    return function != nullptr;
  }

 private:
  void* AddressOf(const char* name) const;

  void* handle_;
};

}  // namespace quillbox

// A library that is loaded when it is needed and not before.
#pragma once

#include <dlfcn.h>

#include <string>

namespace quillbox {

// It stays loaded until the process ends.
class SharedLibrary {
 public:
  // `name` and the version of its interface, as in "libz" and "1".
  SharedLibrary(const std::string& name, const std::string& version)
      : handle_(::dlopen(FileOf(name, version).c_str(), RTLD_NOW | RTLD_LOCAL)) {}

  // False, and `function` null, when the library could not be loaded or doesn't have it.
  template <typename Function>
  bool Find(const char* name, Function& function) const {
    function = handle_ == nullptr ? nullptr : reinterpret_cast<Function>(::dlsym(handle_, name));
    return function != nullptr;
  }

 private:
  static std::string FileOf(const std::string& name, const std::string& version) {
#ifdef __APPLE__
    return name + "." + version + ".dylib";
#else
    return name + ".so." + version;
#endif
  }

  void* handle_;
};

}  // namespace quillbox

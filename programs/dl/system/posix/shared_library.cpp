#include "system/shared_library.h"

#include <dlfcn.h>

namespace quillbox {
namespace {

std::string FileOf(const std::string& name, const std::string& version) {
#ifdef __APPLE__
  return name + "." + version + ".dylib";
#else
  return name + ".so." + version;
#endif
}

}  // namespace

SharedLibrary::SharedLibrary(const std::string& name, const std::string& version)
    : handle_(::dlopen(FileOf(name, version).c_str(), RTLD_NOW | RTLD_LOCAL)) {}

void* SharedLibrary::AddressOf(const char* name) const {
  return handle_ == nullptr ? nullptr : ::dlsym(handle_, name);
}

}  // namespace quillbox

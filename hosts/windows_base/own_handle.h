// Owners of what Windows hands out, and what belongs to the person alone.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

namespace quillbox {

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const {
    if (handle != INVALID_HANDLE_VALUE) ::CloseHandle(handle);
  }
};

// An open file, process or other object of the system's, closed when it goes out of scope.
using OwnHandle = std::unique_ptr<HANDLE, HandleCloser>;

inline bool IsOpen(const OwnHandle& handle) {
  return handle && handle.get() != INVALID_HANDLE_VALUE;
}

// A function of a library that is loaded with the first call, for not every run needs what it
// brings with it. Null when there is none.
template <class Function>
Function SystemFunction(const wchar_t* library, const char* name) {
  const HMODULE loaded = ::LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (loaded == nullptr) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(loaded, name)));
}

// Rights on something new for this person alone. They live until the process ends. Those on a
// folder are inherited by what is made in it; those on a file leave out that to execute it.
SECURITY_ATTRIBUTES ForOwnerAlone();
SECURITY_ATTRIBUTES FileForOwnerAlone();

// This person's number as security descriptors write it; "OW", the owner, when it can't be learned.
std::wstring PersonsNumber();

// The full path in the form that has no limit of length and no names of devices. Empty for the
// empty path.
std::wstring LongPath(const std::string& path);

}  // namespace quillbox

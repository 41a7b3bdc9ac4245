// A program on a command line: its arguments and its streams.
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <algorithm>

#include "system/process_start.h"
#include "system/streams.h"
#include "windows_base/wide_text.h"

namespace quillbox {

// What main is given is in a code page of the system's.
std::vector<std::string> BeginOnCommandLine(int, const char* const*) {
  for (const int stream : {0, 1, 2}) ::_setmode(stream, _O_BINARY);
  std::vector<std::string> arguments;
  int count = 0;
  wchar_t** const texts = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  for (int i = 1; texts != nullptr && i < count; ++i) arguments.push_back(PathOfWide(texts[i]));
  ::LocalFree(texts);
  return arguments;
}

bool WriteAll(int descriptor, std::string_view content) {
  while (!content.empty()) {
    const auto part = static_cast<unsigned>(std::min<std::size_t>(content.size(), 1U << 16U));
    const int written = ::_write(descriptor, content.data(), part);
    if (written <= 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

std::optional<std::size_t> ReadSome(int descriptor, std::span<char> room) {
  const auto part = static_cast<unsigned>(std::min<std::size_t>(room.size(), 1U << 16U));
  const int count = ::_read(descriptor, room.data(), part);
  if (count < 0) return std::nullopt;
  return static_cast<std::size_t>(count);
}

bool InputWaits(int descriptor) {
  const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor));
  if (::GetFileType(handle) == FILE_TYPE_DISK) return true;
  if (::GetFileType(handle) != FILE_TYPE_PIPE) return false;
  DWORD waiting = 0;
  return !::PeekNamedPipe(handle, nullptr, 0, nullptr, &waiting, nullptr) || waiting > 0;
}

}  // namespace quillbox

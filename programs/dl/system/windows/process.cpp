#include "system/process.h"

#include <winsock2.h>

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <algorithm>
#include <utility>

#include "system/windows/wide.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

// Volatile, since nobody in this program reads them again.
template <typename Letter>
void Overwrite(volatile Letter* text) {
  for (; *text != 0; ++text) *text = 0;
}

}  // namespace

// Other processes of the same person read the arguments in this process's own memory, where Windows
// keeps the one text that it hands out. Whoever watches the starts of processes has seen it
// already.
std::string TakeArguments(int, char** argv) {
  int count = 0;
  wchar_t* const line = GetCommandLineW();
  wchar_t** const arguments = CommandLineToArgvW(line, &count);
  std::wstring text;
  for (int i = 1; i < count; ++i) {
    if (i > 1) text += L' ';
    text += arguments[i];
    Overwrite(arguments[i]);
  }
  LocalFree(arguments);
  std::string narrow = Narrow(text);
  Overwrite(text.data());
  Overwrite(line);
  Overwrite(GetCommandLineA());
  for (char** argument = argv + 1; *argument != nullptr; ++argument) Overwrite(*argument);
  return narrow;
}

// Quillbox hands over each byte as its character of windows-1252, also in a path, whose bytes are
// UTF-8. A piece between bars with any other character was typed by somebody and stays UTF-8.
void RestoreBytes(std::string& text) {
  std::string bytes;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find('|', begin), text.size());
    const std::string piece = text.substr(begin, end - begin);
    bytes += FromUtf8(piece).value_or(piece);
    if (end < text.size()) bytes += '|';
    begin = end + 1;
  }
  text = std::move(bytes);
}

// Each file says itself whom it is for.
unsigned NarrowFileMask() {
  return 0;
}

void GuardProcess() {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
  for (const int stream : {0, 1, 2}) _setmode(stream, _O_BINARY);
  WSADATA data;
  WSAStartup(MAKEWORD(2, 2), &data);
}

}  // namespace quillbox

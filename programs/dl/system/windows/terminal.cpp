#include "system/terminal.h"

#include <windows.h>

#include <io.h>

#include <cstdio>

#include "system/windows/wide.h"

namespace quillbox {
namespace {

HANDLE Input() {
  return GetStdHandle(STD_INPUT_HANDLE);
}

// What a handler of the console's keys must know: it is told nothing.
DWORD usualMode = 0;

BOOL WINAPI OnKey(DWORD) {
  SetConsoleMode(Input(), usualMode);
  return FALSE;  // and the program ends, as ever
}

std::string ReadConsoleLine() {
  std::wstring line;
  wchar_t letter = 0;
  DWORD got = 0;
  while (ReadConsoleW(Input(), &letter, 1, &got, nullptr) != 0 && got == 1 && letter != L'\n') {
    if (line.size() == kLongestLine) return "";
    if (letter != L'\r') line += letter;
  }
  return Narrow(line);
}

}  // namespace

bool ErrorsAreSeen() {
  return _isatty(kStandardErrors) != 0;
}

std::string ReadSecret(const char* question) {
  if (GetConsoleMode(Input(), &usualMode) == 0) return ReadInputLine();
  SetConsoleCtrlHandler(&OnKey, TRUE);
  SetConsoleMode(Input(), usualMode & ~static_cast<DWORD>(ENABLE_ECHO_INPUT));
  std::fputs(question, stderr);
  std::string line = ReadConsoleLine();
  SetConsoleMode(Input(), usualMode);
  SetConsoleCtrlHandler(&OnKey, FALSE);
  std::fputs("\n", stderr);
  return line;
}

}  // namespace quillbox

#include "system/watchdog.h"

#include <windows.h>

#include <io.h>

#include <csignal>
#include <cstdlib>

#include "request/answer.h"
#include "system/own_files.h"
#include "system/watch_state.h"
#include "system/windows/wide.h"

namespace quillbox {
namespace {

// What is told when the end comes: the log's code, or words.
struct LastWords {
  std::wstring Data = {}, Log = {}, Part = {};
  std::string Words = {};
  int Output = -1;
};

// What must be global: the handlers of a crash are told nothing. Set once.
const LastWords* last = nullptr;

constexpr int kNoAnswer = static_cast<int>(ResultCode::kNoAnswer);

// From here on nothing but calls of the system: the heap may be what has crashed.

bool WriteCode() {
  const char code = '0' + kNoAnswer;
  DWORD written = 0;
  const HANDLE file = CreateFileW(last->Part.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  const bool whole = file != INVALID_HANDLE_VALUE &&
                     WriteFile(file, &code, 1, &written, nullptr) != 0 &&
                     FlushFileBuffers(file) != 0;
  if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
  return whole && MoveFileExW(last->Part.c_str(), last->Log.c_str(),
                              MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

[[noreturn]] void Leave(int status) {
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
  std::abort();
}

[[noreturn]] void LeaveCode() {
  DeleteFileW(last->Data.c_str());
  DeleteFileW(last->Part.c_str());
  Leave(WriteCode() ? EXIT_SUCCESS : EXIT_FAILURE);
}

}  // namespace

[[noreturn]] void EndOverdue() {
  if (!last->Log.empty()) LeaveCode();
  // Who can't be told has the exit status.
  [[maybe_unused]] const int told =
      _write(last->Output, last->Words.data(), static_cast<unsigned>(last->Words.size()));
  Leave(kNoAnswer);
}

namespace {

LONG WINAPI OnCrash(EXCEPTION_POINTERS*) {
  LeaveCode();
}

void OnAbort(int) {
  LeaveCode();
}

DWORD WINAPI RunClock(void* milliseconds) {
  Sleep(static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(milliseconds)));
  if (watch.TimeIsUp()) EndOverdue();
  return 0;
}

// libcurl ends an exchange at the limit itself and knows better why, so it is let go first.
void Start(std::chrono::milliseconds limit) {
  watch.Start();
  const auto end = static_cast<std::uintptr_t>((limit + limit / 20).count());
  const HANDLE clock =
      CreateThread(nullptr, 0, &RunClock, reinterpret_cast<void*>(end), 0, nullptr);
  if (clock != nullptr) CloseHandle(clock);
}

}  // namespace

[[noreturn]] void AwaitEnd() {
  for (;;) Sleep(INFINITE);
}

void WatchFetch(const std::string& dataPath, const std::string& logPath,
                std::chrono::milliseconds limit) {
  static const LastWords kLast{
      .Data = Wide(dataPath), .Log = Wide(logPath), .Part = Wide(PartPath(logPath))};
  last = &kLast;
  SetUnhandledExceptionFilter(&OnCrash);
  std::signal(SIGABRT, &OnAbort);
  Start(limit);
}

void WatchCommand(const std::string& words, int output, std::chrono::milliseconds limit) {
  static const LastWords kLast{.Words = words + "\n", .Output = output};
  last = &kLast;
  Start(limit);
}

}  // namespace quillbox

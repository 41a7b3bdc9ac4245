#include "windows/windows_process.h"

#include <windows.h>

#include <cstdlib>

#include "windows_base/own_handle.h"
#include "windows_base/wide_text.h"

namespace quillbox {
namespace {

// True for the window that the walk over all ends at.
BOOL CALLBACK GoOnUnlessOurs(HWND window, LPARAM found) {
  if (reinterpret_cast<UINT_PTR>(::GetPropW(window, kApplicationProperty)) != 1) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

HWND RunningInstance() {
  HWND found = nullptr;
  ::EnumWindows(GoOnUnlessOurs, reinterpret_cast<LPARAM>(&found));
  return found;
}

}  // namespace

WindowsSingleInstance::~WindowsSingleInstance() {
  for (const HANDLE held : {gate_, known_}) {
    if (held != nullptr) ::CloseHandle(held);
  }
}

bool WindowsSingleInstance::AnotherInstanceRuns() {
  if (gate_ != nullptr) return false;
  SECURITY_ATTRIBUTES rights = ForOwnerAlone();
  const std::wstring name = L"Local\\Quillbox-" + PersonsNumber();
  gate_ = ::CreateMutexW(&rights, FALSE, name.c_str());
  const bool isTaken = ::GetLastError() == ERROR_ALREADY_EXISTS || gate_ == nullptr;
  if (isTaken && gate_ != nullptr) {
    ::CloseHandle(gate_);
    gate_ = nullptr;
  }
  if (!isTaken) known_ = ::CreateMutexW(nullptr, FALSE, L"Quillbox");
  return isTaken;
}

void WindowsSingleInstance::WakeRunningInstance() {
  constexpr DWORD kBetweenTries = 20;  // milliseconds
  const auto end = std::chrono::steady_clock::now() + patience_;
  HWND window = RunningInstance();
  while (window == nullptr && std::chrono::steady_clock::now() < end) {
    ::Sleep(kBetweenTries);
    window = RunningInstance();
  }
  if (window == nullptr) return;
  DWORD process = 0;
  ::GetWindowThreadProcessId(window, &process);
  ::AllowSetForegroundWindow(process);
  ::SendMessageTimeoutW(window, ::RegisterWindowMessageW(kLaunchedMessage), 0, 0, SMTO_ABORTIFHUNG,
                        static_cast<UINT>(patience_.count()), nullptr);
}

namespace {

constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t kRunName[] = L"Quillbox";

}  // namespace

bool RunValue::Present() {
  DWORD size = 0;
  const LSTATUS found =
      ::RegGetValueW(HKEY_CURRENT_USER, kRunKey, kRunName, RRF_RT_REG_SZ, nullptr, nullptr, &size);
  return found == ERROR_SUCCESS && size > sizeof(wchar_t);
}

void RunValue::Make() {
  const std::wstring program = WideOfPath(folder_.ProgramFile("Quillbox.exe"));
  ::RegSetKeyValueW(HKEY_CURRENT_USER, kRunKey, kRunName, REG_SZ, program.c_str(),
                    static_cast<DWORD>((program.size() + 1) * sizeof(wchar_t)));
}

void RunValue::Remove() {
  ::RegDeleteKeyValueW(HKEY_CURRENT_USER, kRunKey, kRunName);
}

// Nothing is unwound: waits may be nested in each other all the way down the stack.
void WindowsProgramExit::EndProcess() {
  lastActs_();
  ::TerminateProcess(::GetCurrentProcess(), 0);
  std::abort();
}

}  // namespace quillbox

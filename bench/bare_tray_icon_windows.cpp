// The least that a Windows program with an icon in the taskbar can be: what bench/tray-cost-windows
// measures Quillbox against.
#include <windows.h>

#include <shellapi.h>

int WINAPI wWinMain(HINSTANCE program, HINSTANCE, PWSTR, int) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = ::DefWindowProcW;
  windowClass.hInstance = program;
  windowClass.lpszClassName = L"BareTrayIcon";
  ::RegisterClassW(&windowClass);
  NOTIFYICONDATAW icon{};
  icon.cbSize = sizeof icon;
  icon.hWnd = ::CreateWindowExW(0, L"BareTrayIcon", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                program, nullptr);
  icon.uFlags = NIF_ICON;
  icon.hIcon = ::LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_INFORMATION));
  ::Shell_NotifyIconW(NIM_ADD, &icon);
  for (MSG message; ::GetMessageW(&message, nullptr, 0, 0) > 0;) ::DispatchMessageW(&message);
  return 0;
}

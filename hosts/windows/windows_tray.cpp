#include "windows/windows_tray.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "text/text_list.h"
#include "windows/windows_process.h"
#include "windows_base/wide_text.h"

namespace quillbox {
namespace {

constexpr wchar_t kClass[] = L"QuillboxForm1";
constexpr UINT_PTR kTryAgain = 1;
constexpr UINT kMillisecondsBetweenTries = 2000;
constexpr int kTries = 60;  // two minutes: a busy sign-in is slow

template <std::size_t Size>
void Put(wchar_t (&field)[Size], const std::string& text) {
  const std::wstring wide = WideOfCodePage(text);
  const std::size_t length = std::min(wide.size(), Size - 1);
  std::copy_n(wide.begin(), length, field);
  std::fill(field + length, field + Size, L'\0');
}

}  // namespace

// A top-level window: one for messages alone would not hear what is broadcast to all.
WindowsTray::WindowsTray()
    : taskbarCreated_(::RegisterWindowMessageW(L"TaskbarCreated")),
      launched_(::RegisterWindowMessageW(kLaunchedMessage)) {
  const HINSTANCE program = ::GetModuleHandleW(nullptr);
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = WindowProcedure;
  windowClass.hInstance = program;
  windowClass.lpszClassName = kClass;
  ::RegisterClassW(&windowClass);
  window_ = ::CreateWindowExW(WS_EX_TOOLWINDOW, kClass, L"Quillbox", WS_POPUP, 0, 0, 0, 0, nullptr,
                              nullptr, program, nullptr);
  ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  // Also when the program has more rights than the desktop.
  for (const UINT message : {taskbarCreated_, launched_}) {
    ::ChangeWindowMessageFilterEx(window_, message, MSGFLT_ALLOW, nullptr);
  }
  icon_.cbSize = sizeof icon_;
  icon_.hWnd = window_;
}

WindowsTray::~WindowsTray() {
  if (shown_) Tell(NIM_DELETE);
  ::RemovePropW(window_, kApplicationProperty);
  ::DestroyWindow(window_);
}

bool WindowsTray::Apply(TrayOperation operation, const TrayIconRecord& record) {
  icon_.uID = record.uID;
  icon_.uFlags = record.uFlags;
  icon_.uCallbackMessage = record.uCallbackMessage;
  icon_.dwState = record.dwState;
  icon_.dwStateMask = record.dwStateMask;
  icon_.uTimeout = record.uTimeout;
  icon_.dwInfoFlags = record.dwInfoFlags;
  Put(icon_.szTip, record.szTip.Text());
  Put(icon_.szInfo, record.szInfo.Text());
  Put(icon_.szInfoTitle, record.szInfoTitle.Text());
  if (!picture_ || pictureFile_ != record.hIcon) {
    pictureFile_ = record.hIcon;
    LoadPicture();
  }
  switch (operation) {
    case TrayOperation::kAdd:
      return Add();
    case TrayOperation::kModify:
      return shown_ && Tell(NIM_MODIFY);
    case TrayOperation::kDelete:
      wanted_ = false;
      ::KillTimer(window_, kTryAgain);
      return std::exchange(shown_, false) && Tell(NIM_DELETE);
  }
  return false;
}

// From here on a later start finds this one. An icon that is there already, or came although the
// taskbar's answer was late, can't be added but be changed.
bool WindowsTray::Add() {
  ::SetPropW(window_, kApplicationProperty, reinterpret_cast<HANDLE>(1));
  wanted_ = true;
  shown_ = Tell(NIM_ADD) || Tell(NIM_MODIFY);
  if (shown_) {
    ::KillTimer(window_, kTryAgain);
  } else {
    triesLeft_ = kTries;
    ::SetTimer(window_, kTryAgain, kMillisecondsBetweenTries, nullptr);
  }
  return shown_;
}

bool WindowsTray::Tell(DWORD operation) {
  return ::Shell_NotifyIconW(operation, &icon_) != FALSE;
}

// While the person signs in, the taskbar may not be ready, and then it tells nobody when it is.
void WindowsTray::TryAgain() {
  if (--triesLeft_ <= 0) ::KillTimer(window_, kTryAgain);
  if (!wanted_ || shown_ || !Tell(NIM_ADD)) return;
  ::KillTimer(window_, kTryAgain);
  if (events_ != nullptr) events_->TaskbarCreated();
}

// In the size that the taskbar shows now; the one that is shown lives until the new one is there.
void WindowsTray::LoadPicture() {
  const int size = ::GetSystemMetricsForDpi(SM_CXSMICON, ::GetDpiForWindow(window_));
  OwnedIcon picture = pictureFile_.empty() ? OwnIcon(size) : IconFromFile(pictureFile_, size);
  if (!picture) picture = OwnIcon(size);
  icon_.hIcon = picture.get();
  std::swap(picture_, picture);
  if (!shown_) return;
  NOTIFYICONDATAW change = icon_;
  change.uFlags = NIF_ICON;
  ::Shell_NotifyIconW(NIM_MODIFY, &change);
}

bool WindowsTray::CanShowPicture(const std::string& path) {
  return IconFromFile(path, ::GetSystemMetrics(SM_CXSMICON)) != nullptr;
}

std::optional<RECT> WindowsTray::IconPlace() const {
  NOTIFYICONIDENTIFIER id{};
  id.cbSize = sizeof id;
  id.hWnd = window_;
  id.uID = icon_.uID;
  RECT place{};
  if (!shown_ || ::Shell_NotifyIconGetRect(&id, &place) != S_OK || ::IsRectEmpty(&place)) {
    return std::nullopt;
  }
  return place;
}

LRESULT CALLBACK WindowsTray::WindowProcedure(HWND window, UINT message, WPARAM wide,
                                              LPARAM long_) {
  auto* const tray = reinterpret_cast<WindowsTray*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  const std::optional<LRESULT> result =
      tray == nullptr ? std::nullopt : tray->Handle(message, wide, long_);
  return result ? *result : ::DefWindowProcW(window, message, wide, long_);
}

std::optional<LRESULT> WindowsTray::Handle(UINT message, WPARAM wide, LPARAM long_) {
  if (events_ == nullptr) return std::nullopt;
  if (message == icon_.uCallbackMessage && wide == icon_.uID) {
    Report(long_);
    return 0;
  }
  if (message == taskbarCreated_) {
    if (wanted_) events_->TaskbarCreated();
    return 0;
  }
  if (message == launched_) {
    events_->QuillboxLaunched();
    return 0;
  }
  switch (message) {
    case WM_TIMER:
      if (wide == kTryAgain) TryAgain();
      return 0;
    case WM_DPICHANGED:
    case WM_DISPLAYCHANGE:
      if (wanted_) LoadPicture();
      return 0;
    case WM_CLOSE:  // how a person's other programs ask this one to end
      ChooseExit();
      return 0;
    case WM_ENDSESSION:
      if (wide != FALSE) ChooseExit();
      return 0;
    default:
      return std::nullopt;
  }
}

void WindowsTray::Report(LPARAM code) {
  switch (const auto mouse = static_cast<TrayMouse>(code)) {
    case TrayMouse::kMove:
    case TrayMouse::kLeftDown:
    case TrayMouse::kLeftDoubleClick:
    case TrayMouse::kRightDown:
      events_->Form_MouseMove(mouse);
      break;
    default:
      break;
  }
}

void WindowsTray::ChooseExit() {
  const Menu& menu = events_->TrayMenu();
  const auto exit = std::find_if(menu.begin(), menu.end(),
                                 [](const MenuItem& item) { return item.Name == "Exit"; });
  if (exit != menu.end()) events_->MenuItemChosen(MenuItem(*exit));
}

namespace {

// A copy of the program's menu, which may change while this one is open. The number of an item is
// its place in `chosen`, counted from 1.
HMENU NewMenu(const Menu& items, std::vector<MenuItem>& chosen) {
  const HMENU menu = ::CreatePopupMenu();
  for (const MenuItem& item : items) {
    if (item.Separator) {
      ::AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
      continue;
    }
    std::wstring caption;
    for (const wchar_t letter : WideOfCodePage(Elided(item.Caption))) {
      caption.append(letter == L'&' ? 2 : 1, letter);  // one alone would underline the next letter
    }
    const UINT enabled = item.Enabled ? MF_ENABLED : MF_GRAYED;
    if (item.Submenu) {
      ::AppendMenuW(menu, MF_POPUP | enabled,
                    reinterpret_cast<UINT_PTR>(NewMenu(item.Items, chosen)), caption.c_str());
      continue;
    }
    chosen.push_back(item);
    const auto number = static_cast<UINT>(chosen.size());
    ::AppendMenuW(menu, MF_STRING | enabled, number, caption.c_str());
    if (item.Default) ::SetMenuDefaultItem(menu, number, FALSE);
  }
  return menu;
}

}  // namespace

bool WindowsTray::BringToForeground() {
  return ::SetForegroundWindow(window_) != FALSE;
}

// The message at the end makes the system take back the foreground, or the next menu would vanish
// at once.
void WindowsTray::PopUp() {
  if (events_ == nullptr) return;
  std::vector<MenuItem> items;
  const HMENU menu = NewMenu(events_->TrayMenu(), items);
  POINT cursor{};
  ::GetCursorPos(&cursor);
  const UINT side = ::GetSystemMetrics(SM_MENUDROPALIGNMENT) != 0 ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
  const auto number = static_cast<std::size_t>(
      ::TrackPopupMenuEx(menu, side | TPM_RIGHTBUTTON | TPM_RETURNCMD | TPM_NONOTIFY, cursor.x,
                         cursor.y, window_, nullptr));
  ::PostMessageW(window_, WM_NULL, 0, 0);
  ::DestroyMenu(menu);
  if (number > 0 && number <= items.size()) events_->MenuItemChosen(items[number - 1]);
}

PixelPoint WindowsCursor::Position() {
  POINT cursor{};
  ::GetCursorPos(&cursor);
  return {cursor.x, cursor.y};
}

}  // namespace quillbox

#include "windows_dialogs/dialog.h"

#include <uxtheme.h>

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "text/code_page.h"
#include "windows_base/wide_text.h"

namespace quillbox {
namespace {

// All dialogs that are there, and the hook that gives them the keyboard: a hook's procedure gets no
// context.
std::vector<Dialog*> openDialogs;
HHOOK keyHook = nullptr;

std::wstring ResourceName(std::string_view name) {
  return WideOfCodePage(UpperCase(name));
}

// One of the three texts behind the head of a dialog's table: a number, or up to the zero.
const WORD* BehindText(const WORD* text) {
  if (*text == 0xFFFF) return text + 2;
  while (*text != 0) ++text;
  return text + 1;
}

// The table with the person's message font in the place of its own, which is the system's default.
// Another font than that is meant.
std::vector<WORD> TableOf(std::string_view name) {
  constexpr std::size_t kHeadWords = 13;
  constexpr std::size_t kFontWords = 3;  // size, weight, italic and character set
  const HRSRC found = ::FindResourceW(nullptr, ResourceName(name).c_str(), RT_DIALOG);
  const auto* const first =
      static_cast<const WORD*>(::LockResource(::LoadResource(nullptr, found)));
  const WORD* const end = first + ::SizeofResource(nullptr, found) / sizeof(WORD);
  const WORD* const font = BehindText(BehindText(BehindText(first + kHeadWords)));
  const WORD* controls = BehindText(font + kFontWords);
  if ((controls - first) % 2 != 0) ++controls;
  const auto* const face = reinterpret_cast<const wchar_t*>(font + kFontWords);
  if (::lstrcmpW(face, L"Segoe UI") != 0) return {first, end};

  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  ::SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                               USER_DEFAULT_SCREEN_DPI);
  const LOGFONTW& wanted = metrics.lfMessageFont;
  std::vector<WORD> table(first, font);
  table.push_back(static_cast<WORD>(
      ::MulDiv(std::abs(static_cast<int>(wanted.lfHeight)), 72, USER_DEFAULT_SCREEN_DPI)));
  table.push_back(static_cast<WORD>(wanted.lfWeight));
  table.push_back(static_cast<WORD>(wanted.lfItalic | wanted.lfCharSet << 8));
  const std::wstring_view wantedFace = wanted.lfFaceName;
  table.insert(table.end(), wantedFace.begin(), wantedFace.end());
  table.push_back(0);
  if (table.size() % 2 != 0) table.push_back(0);
  table.insert(table.end(), controls, end);
  return table;
}

HWND NewWindow(std::string_view name, HWND parent, DLGPROC procedure, Dialog* dialog) {
  const std::vector<WORD> table = TableOf(name);
  const HWND window = ::CreateDialogIndirectParamW(
      ::GetModuleHandleW(nullptr), reinterpret_cast<const DLGTEMPLATE*>(table.data()), parent,
      procedure, 0);
  ::SetWindowLongPtrW(window, DWLP_USER, reinterpret_cast<LONG_PTR>(dialog));
  SetFixedName(window, name);
  return window;
}

}  // namespace

Dialog::Dialog(std::string_view name, const std::string& caption, HWND owner)
    : window_(NewWindow(name, owner, DialogProcedure, this)) {
  ::SetWindowTextW(window_, WideOfCodePage(caption).c_str());
  small_ = OwnIcon(::GetSystemMetricsForDpi(SM_CXSMICON, Dpi()));
  large_ = OwnIcon(::GetSystemMetricsForDpi(SM_CXICON, Dpi()));
  ::SendMessageW(window_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small_.get()));
  ::SendMessageW(window_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(large_.get()));
  if (openDialogs.empty()) {
    keyHook = ::SetWindowsHookExW(WH_GETMESSAGE, OnFetchedMessage, nullptr, ::GetCurrentThreadId());
  }
  openDialogs.push_back(this);
}

Dialog::~Dialog() {
  std::erase(openDialogs, this);
  if (openDialogs.empty()) ::UnhookWindowsHookEx(std::exchange(keyHook, nullptr));
  fields_.Release();
  ::SetWindowLongPtrW(window_, DWLP_USER, 0);
  ::DestroyWindow(window_);
}

HWND Dialog::NewPage(std::string_view name) {
  const HWND page = NewWindow(name, window_, DialogProcedure, nullptr);
  ::EnableThemeDialogTexture(page, ETDT_ENABLETAB);
  return page;
}

void Dialog::Present(const RECT& area) {
  RECT place{};
  ::GetWindowRect(window_, &place);
  const LONG x = (area.left + area.right - (place.right - place.left)) / 2;
  const LONG y = (area.top + area.bottom - (place.bottom - place.top)) / 2;
  ::SetWindowPos(window_, HWND_TOPMOST, x, y, 0, 0, SWP_NOSIZE);
  ::SetWindowPos(window_, HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW);
  ::SetForegroundWindow(window_);
}

HWND Dialog::WindowNamed(std::string_view name) {
  for (const Dialog* const dialog : openDialogs) {
    if (HasFixedName(dialog->window_, name) && ::IsWindowVisible(dialog->window_)) {
      return dialog->window_;
    }
  }
  return nullptr;
}

// Message boxes and menus fetch messages in loops of their own, which know nothing of dialogs.
LRESULT CALLBACK Dialog::OnFetchedMessage(int code, WPARAM wide, LPARAM long_) {
  auto& message = *reinterpret_cast<MSG*>(long_);
  if (code == HC_ACTION && wide == PM_REMOVE && message.message >= WM_KEYFIRST &&
      message.message <= WM_KEYLAST) {
    const HWND root = ::GetAncestor(message.hwnd, GA_ROOT);
    const auto found =
        std::find_if(openDialogs.begin(), openDialogs.end(),
                     [root](const Dialog* dialog) { return dialog->window_ == root; });
    if (found != openDialogs.end()) (*found)->OnKey(message);
  }
  return ::CallNextHookEx(nullptr, code, wide, long_);
}

// A key that was handled is no message any more. It is taken away before it is handled, which may
// pump events and end the dialog.
void Dialog::OnKey(MSG& key) {
  MSG copy = std::exchange(key, MSG{});
  const bool control = (::GetKeyState(VK_CONTROL) & 0x8000) != 0;
  const bool shift = (::GetKeyState(VK_SHIFT) & 0x8000) != 0;
  const bool turns = copy.wParam == VK_TAB || copy.wParam == VK_NEXT || copy.wParam == VK_PRIOR;
  if (copy.message == WM_KEYDOWN && control && turns) {
    const bool back = copy.wParam == VK_PRIOR || (copy.wParam == VK_TAB && shift);
    Turn(back ? -1 : 1);
  } else if (!::IsDialogMessageW(window_, &copy)) {
    key = copy;
  }
}

INT_PTR CALLBACK Dialog::DialogProcedure(HWND window, UINT message, WPARAM wide, LPARAM long_) {
  const bool isPage = (::GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0;
  const HWND root = isPage ? ::GetParent(window) : window;
  auto* const dialog = reinterpret_cast<Dialog*>(::GetWindowLongPtrW(root, DWLP_USER));
  if (dialog == nullptr) return FALSE;
  if (!isPage) {
    if (const auto result = dialog->Handle(message, wide, long_)) return *result;
  }
  return dialog->HandleUsual(window, message, wide, long_);
}

// The dialog may be gone after a command.
INT_PTR Dialog::HandleUsual(HWND window, UINT message, WPARAM wide, LPARAM long_) {
  if (message == WM_CLOSE && window == window_) {
    Close();
    return TRUE;
  }
  if (message != WM_COMMAND) return FALSE;
  if (long_ != 0) {
    fields_.Tell(reinterpret_cast<HWND>(long_), HIWORD(wide));
  } else if (LOWORD(wide) == IDCANCEL && escape_ != nullptr) {
    escape_->Click();
  } else if (LOWORD(wide) == IDCANCEL) {
    Close();
  }
  return TRUE;
}

void Dialog::Close() {
  const std::function<void()> closed = Closed;
  if (closed) closed();
}

}  // namespace quillbox

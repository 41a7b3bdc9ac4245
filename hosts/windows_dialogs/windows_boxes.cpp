#include "windows_dialogs/windows_boxes.h"

#include <windows.h>

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "text/code_page.h"
#include "windows_base/wide_text.h"
#include "windows_dialogs/dialog.h"

namespace quillbox {

// All windows of the program wait for the answer.
BoxAnswer WindowsBoxes::Show(const Message& message) {
  UINT look = MB_TASKMODAL;
  if (message.Icon == BoxIcon::kInformation) look |= MB_ICONINFORMATION;
  if (message.Icon == BoxIcon::kExclamation) look |= MB_ICONEXCLAMATION;
  if (message.Buttons == BoxButtons::kYesNo) look |= MB_YESNO;
  if (message.InForeground) look |= MB_SETFOREGROUND | MB_TOPMOST;
  const int clicked = ::MessageBoxW(nullptr, WideOfCodePage(message.Text).c_str(),
                                    WideOfCodePage(message.Title).c_str(), look);
  if (message.Buttons == BoxButtons::kOk) return BoxAnswer::kOk;
  return clicked == IDYES ? BoxAnswer::kYes : BoxAnswer::kNo;
}

namespace {

// While it lives, the next dialog of this thread comes up in the middle of the primary screen.
class CentredDialog {
 public:
  CentredDialog() { hook = ::SetWindowsHookExW(WH_CBT, OnWindow, nullptr, ::GetCurrentThreadId()); }
  ~CentredDialog() { Unhook(); }
  CentredDialog(const CentredDialog&) = delete;
  CentredDialog& operator=(const CentredDialog&) = delete;

 private:
  static void Unhook() {
    if (hook != nullptr) ::UnhookWindowsHookEx(hook);
    hook = nullptr;
  }

  static LRESULT CALLBACK OnWindow(int code, WPARAM wide, LPARAM long_) {
    const auto window = reinterpret_cast<HWND>(wide);
    if (code == HCBT_ACTIVATE && hook != nullptr) {
      RECT place{};
      ::GetWindowRect(window, &place);
      const int x = (::GetSystemMetrics(SM_CXSCREEN) - (place.right - place.left)) / 2;
      const int y = (::GetSystemMetrics(SM_CYSCREEN) - (place.bottom - place.top)) / 2;
      ::SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
      Unhook();
    }
    return ::CallNextHookEx(nullptr, code, wide, long_);
  }

  inline static HHOOK hook = nullptr;  // a hook's procedure gets no context
};

// Name and pattern by turns, each with its end, and one more end. Pictures of a second kind can
// stand in the tray, too.
std::wstring FilterOf(const FileQuestion& question) {
  const auto with = [](std::wstring& filter, const std::wstring& text) {
    filter += text;
    filter += L'\0';
  };
  std::wstring filter;
  with(filter, WideOfCodePage(question.FilterName));
  with(filter, WideOfCodePage(question.Pattern));
  if (EqualIgnoringCase(question.Pattern, "*.ico")) {
    with(filter, L"PNG Files (*.png)");
    with(filter, L"*.png");
  }
  return filter;
}

// The dialog goes through the folders by making each the current one.
class KeptCurrentFolder {
 public:
  KeptCurrentFolder() {
    folder_.resize(::GetCurrentDirectoryW(0, nullptr));
    ::GetCurrentDirectoryW(static_cast<DWORD>(folder_.size()), folder_.data());
  }
  ~KeptCurrentFolder() { ::SetCurrentDirectoryW(folder_.c_str()); }
  KeptCurrentFolder(const KeptCurrentFolder&) = delete;
  KeptCurrentFolder& operator=(const KeptCurrentFolder&) = delete;

 private:
  std::wstring folder_;
};

}  // namespace

std::optional<std::string> WindowsFileChooser::Choose(const FileQuestion& question) {
  constexpr std::size_t kLongestPath = 32768;
  const std::wstring filter = FilterOf(question);
  const std::wstring title = WideOfCodePage(question.Title);
  const std::wstring folder = WideOfPath(question.Folder);
  std::wstring file = WideOfPath(question.File);
  file.resize(kLongestPath, L'\0');
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = Dialog::WindowNamed("Opts");
  dialog.lpstrFilter = filter.c_str();
  dialog.lpstrFile = file.data();
  dialog.nMaxFile = static_cast<DWORD>(file.size());
  dialog.lpstrInitialDir = folder.c_str();
  dialog.lpstrTitle = title.c_str();
  dialog.Flags =
      OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  const KeptCurrentFolder kept;
  const CentredDialog centred;
  bool chosen = ::GetOpenFileNameW(&dialog) != FALSE;
  if (!chosen && ::CommDlgExtendedError() == FNERR_INVALIDFILENAME) {  // of the file offered
    std::fill(file.begin(), file.end(), L'\0');
    chosen = ::GetOpenFileNameW(&dialog) != FALSE;
  }
  if (!chosen) return std::nullopt;
  return PathOfWide(file.c_str());
}

}  // namespace quillbox

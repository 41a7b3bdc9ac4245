#include "windows_dialogs/windows_forms.h"

#include <utility>

#include "options/account.h"
#include "options/opts.h"
#include "reports/reports_win.h"
#include "windows_base/wide_text.h"
#include "windows_dialogs/opts_dialog.h"

namespace quillbox {
namespace {

// The part of the screen that the taskbar leaves free, on the monitor of the pointer.
RECT WorkArea() {
  POINT pointer{};
  ::GetCursorPos(&pointer);
  MONITORINFO info{};
  info.cbSize = sizeof info;
  ::GetMonitorInfoW(::MonitorFromPoint(pointer, MONITOR_DEFAULTTONEAREST), &info);
  return info.rcWork;
}

// A page's text without its tags.
std::wstring TextOfHtml(const std::string& html) {
  std::wstring text;
  bool inTag = false;
  for (const wchar_t letter : WideOfCodePage(html)) {
    if (letter == L'<') inTag = true;
    if (!inTag) text += letter;
    if (letter == L'>') inTag = false;
  }
  return text;
}

}  // namespace

void WindowsForms::Load(AboutWin& form) {
  if (IsLoaded(FormName::kAboutWin)) return;
  Show(FormName::kAboutWin, std::make_unique<AboutDialog>(form), [] {});
}

void WindowsForms::Load(Opts& form) {
  if (IsLoaded(FormName::kOpts)) return;
  Show(FormName::kOpts, std::make_unique<OptsDialog>(form), [&form] { form.Closed(); });
}

void WindowsForms::Load(Account& form) {
  if (IsLoaded(FormName::kAccount)) return;
  const auto opts = windows_.find(FormName::kOpts);
  const HWND owner = opts == windows_.end() ? nullptr : opts->second.Shown->Window();
  Show(FormName::kAccount, std::make_unique<AccountDialog>(form, owner),
       [&form] { form.Closed(); });
}

void WindowsForms::Load(ReportsWin& form) {
  if (IsLoaded(FormName::kReportsWin)) return;
  Show(FormName::kReportsWin, std::make_unique<ReportsDialog>(form), [&form] { form.Closed(); });
}

// One that belongs to another stands in the middle of that.
void WindowsForms::Show(FormName form, std::unique_ptr<Dialog> dialog,
                        std::function<void()> closed) {
  Dialog& shown = *dialog;
  shown.Closed = [this, form] { Unload(form); };
  windows_[form] = {std::move(dialog), std::move(closed)};
  RECT area = WorkArea();
  if (const HWND owner = ::GetWindow(shown.Window(), GW_OWNER)) ::GetWindowRect(owner, &area);
  shown.Present(area);
}

void WindowsForms::Hide(FormName form) {
  const auto window = windows_.find(form);
  if (window != windows_.end()) ::ShowWindow(window->second.Shown->Window(), SW_HIDE);
}

// The window goes before its model is told, which may be destroyed or loaded again then. One that
// belongs to it would go with it unasked.
void WindowsForms::Unload(FormName form) {
  if (form == FormName::kOpts) Unload(FormName::kAccount);
  auto window = windows_.extract(form);
  if (window.empty()) return;
  window.mapped().Shown.reset();
  window.mapped().Closed();
}

void WindowsForms::UnloadAll() {
  for (const FormName form :
       {FormName::kAccount, FormName::kOpts, FormName::kReportsWin, FormName::kAboutWin}) {
    Unload(form);
  }
}

ReportsDialog* WindowsForms::Reports() {
  const auto window = windows_.find(FormName::kReportsWin);
  if (window == windows_.end()) return nullptr;
  return static_cast<ReportsDialog*>(window->second.Shown.get());
}

void WindowsForms::Navigate(const std::string& address) {
  ReportsDialog* const window = Reports();
  if (window == nullptr || address == "about:blank") return;
  opener_.Open(address);
  window->Say(L"The report was opened in your web browser.", false);
}

void WindowsForms::SetBody(const std::string& html) {
  if (ReportsDialog* const window = Reports()) window->Say(TextOfHtml(html), true);
}

}  // namespace quillbox

#include "qt_windows/qt_forms.h"

#include <QTimer>
#include <utility>

#include "options/account.h"
#include "options/opts.h"
#include "qt_base/own_process.h"
#include "qt_windows/about_form.h"
#include "qt_windows/form_binding.h"
#include "qt_windows/form_dialog.h"
#include "qt_windows/opts_form.h"
#include "qt_windows/reports_window.h"
#include "reports/reports_win.h"

namespace quillbox {

QtForms::~QtForms() {
  for (auto& [form, window] : windows_) delete window.Widget;
}

bool QtForms::IsLoaded(FormName form) const {
  const auto window = windows_.find(form);
  return window != windows_.end() && window->second.Widget;
}

// A closed window lives on until the event loop comes round, and its model may not: it is forgotten
// at once.
void QtForms::TellClosed(FormName form) {
  const Window window = std::exchange(windows_[form], {});
  if (!window.Widget) return;
  ReleaseControls(window.Widget);
  window.Closed();
}

void QtForms::Load(AboutWin& form) {
  if (!IsLoaded(FormName::kAboutWin)) Show(FormName::kAboutWin, NewAboutForm(form), [] {});
}

void QtForms::Load(Opts& form) {
  if (IsLoaded(FormName::kOpts)) return;
  Show(FormName::kOpts, NewOptsForm(form), [&form] { form.Closed(); });
}

void QtForms::Load(Account& form) {
  if (IsLoaded(FormName::kAccount)) return;
  Show(FormName::kAccount, NewAccountForm(form, windows_[FormName::kOpts].Widget),
       [&form] { form.Closed(); });
}

void QtForms::Load(ReportsWin& form) {
  if (reports_ == nullptr || reports_->Loaded()) return;
  reports_->Load(form, [&form] { form.Closed(); });
  closeReports_ = [&form] { form.Closed(); };
}

// To the front, without staying there.
void QtForms::Show(FormName form, QWidget* window, std::function<void()> closed) {
  windows_[form] = {window, std::move(closed)};
  new CloseWatcher(window, [this, form] {
    if (!hiding_) TellClosed(form);
  });
  QObject::connect(window, &QObject::destroyed, [] { QTimer::singleShot(0, GiveBackSpareMemory); });
  window->show();
  window->raise();
  window->activateWindow();
}

void QtForms::Hide(FormName form) {
  if (!IsLoaded(form)) return;
  hiding_ = true;
  windows_[form].Widget->hide();
  hiding_ = false;
}

void QtForms::Unload(FormName form) {
  if (form == FormName::kReportsWin) UnloadReports();
  if (!IsLoaded(form)) return;
  const QPointer<QWidget> window = windows_[form].Widget;
  TellClosed(form);
  window->close();
}

void QtForms::UnloadReports() {
  if (reports_ == nullptr || !reports_->Loaded()) return;
  reports_->Unload();
  closeReports_();
}

void QtForms::UnloadAll() {
  for (const FormName form :
       {FormName::kAccount, FormName::kOpts, FormName::kReportsWin, FormName::kAboutWin}) {
    Unload(form);
  }
}

}  // namespace quillbox

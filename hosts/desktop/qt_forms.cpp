#include "desktop/qt_forms.h"

#include <QMessageBox>
#include <utility>

#include "desktop/about_form.h"
#include "desktop/close_watcher.h"
#include "options/account.h"
#include "options/opts.h"
#include "reports/reports_win.h"

namespace quillbox {
namespace {

QWidget* NewNotice(const QString& title) {
  auto* const notice = new QMessageBox(QMessageBox::Information, title,
                                       "This window is not part of this version of Quillbox yet.");
  notice->setObjectName("FormNotice");
  notice->setAttribute(Qt::WA_DeleteOnClose);
  notice->setModal(false);
  return notice;
}

}  // namespace

QtForms::~QtForms() {
  for (auto& [form, window] : windows_) delete window.Widget;
}

bool QtForms::IsLoaded(FormName form) const {
  const auto window = windows_.find(form);
  return window != windows_.end() && window->second.Widget;
}

// A closed window lives on until the event loop comes round, so it is forgotten at once.
void QtForms::TellClosed(FormName form) {
  Window window = std::exchange(windows_[form], {});
  if (window.Widget && window.Closed) window.Closed();
}

void QtForms::Load(AboutWin& form) {
  if (!IsLoaded(FormName::kAboutWin)) Show(FormName::kAboutWin, NewAboutForm(form), [] {});
}

void QtForms::Load(Opts& form) {
  if (IsLoaded(FormName::kOpts)) return;
  Show(FormName::kOpts, NewNotice("Quillbox Options"), [&form] { form.Closed(); });
}

void QtForms::Load(Account& form) {
  if (IsLoaded(FormName::kAccount)) return;
  Show(FormName::kAccount, NewNotice("Quillbox Account"), [&form] { form.Closed(); });
}

void QtForms::Load(ReportsWin& form) {
  if (IsLoaded(FormName::kReportsWin)) return;
  Show(FormName::kReportsWin, NewNotice("Quillbox Reports"), [&form] { form.Closed(); });
}

// To the front, without staying there.
void QtForms::Show(FormName form, QWidget* window, std::function<void()> closed) {
  windows_[form] = {window, std::move(closed)};
  new CloseWatcher(window, [this, form] {
    if (!hiding_) TellClosed(form);
  });
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
  if (!IsLoaded(form)) return;
  const QPointer<QWidget> window = windows_[form].Widget;
  TellClosed(form);
  window->close();
}

void QtForms::UnloadAll() {
  for (const FormName form :
       {FormName::kAccount, FormName::kOpts, FormName::kReportsWin, FormName::kAboutWin}) {
    Unload(form);
  }
}

}  // namespace quillbox

#include "desktop/qt_forms.h"

#include <QMessageBox>

#include "desktop/about_form.h"

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

// To the front, without staying there.
void ShowInFront(QWidget& window) {
  window.show();
  window.raise();
  window.activateWindow();
}

// A closed window lives on until the event loop comes round.
bool IsLoaded(const QPointer<QWidget>& window) {
  return window && window->isVisible();
}

}  // namespace

QtForms::~QtForms() {
  UnloadAll();
}

QWidget* QtForms::NewWindow(FormName form) const {
  switch (form) {
    case FormName::kOpts:
      return NewNotice("Quillbox Options");
    case FormName::kReportsWin:
      return NewNotice("Quillbox Reports");
    case FormName::kAboutWin:
      return NewAboutForm(models_->AboutWin);
    case FormName::kAccount:
      return NewNotice("Quillbox Account");
  }
  return nullptr;
}

void QtForms::Load(FormName form) {
  QPointer<QWidget>& window = windows_[form];
  if (!models_ || IsLoaded(window)) return;
  window = NewWindow(form);
  ShowInFront(*window);
}

void QtForms::Unload(FormName form) {
  QPointer<QWidget>& window = windows_[form];
  if (IsLoaded(window)) window->close();
}

void QtForms::UnloadAll() {
  for (auto& [form, window] : windows_) delete window;
}

}  // namespace quillbox

#include "desktop/qt_forms.h"

#include <QMessageBox>

namespace quillbox {
namespace {

QString Title(FormName form) {
  switch (form) {
    case FormName::kOpts:
      return "Quillbox Options";
    case FormName::kReportsWin:
      return "Quillbox Reports";
    case FormName::kAboutWin:
      return "About Quillbox";
    case FormName::kAccount:
      return "Quillbox Account";
  }
  return "Quillbox";
}

}  // namespace

QtForms::~QtForms() {
  UnloadAll();
}

void QtForms::Load(FormName form) {
  if (notice_) return;
  notice_ = new QMessageBox(QMessageBox::Information, Title(form),
                            "This window is not part of this version of Quillbox yet.");
  notice_->setObjectName("FormNotice");
  notice_->setAttribute(Qt::WA_DeleteOnClose);
  notice_->setModal(false);
  notice_->show();
}

void QtForms::UnloadAll() {
  delete notice_;
}

}  // namespace quillbox

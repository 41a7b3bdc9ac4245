#include "qt_windows/form_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QShortcut>

#include "forms/button.h"
#include "qt_base/icon_picture.h"
#include "qt_base/unicode_text.h"
#include "qt_windows/form_binding.h"

namespace quillbox {

QDialog* NewFormDialog(const char* name, const std::string& caption, QWidget* parent) {
  auto* const form = new QDialog(parent);
  form->setObjectName(name);
  form->setAttribute(Qt::WA_DeleteOnClose);
  form->setWindowTitle(ToUnicode(caption));
  form->setWindowIcon(OwnPicture());
  return form;
}

QDialogButtonBox* NewOkCancelBox(QDialog* form, Button& ok, Button& cancel) {
  // A child of the form at once, or the form would not hear of its default button.
  auto* const box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, form);
  Bind(box->button(QDialogButtonBox::Ok), ok);
  QPushButton* const cancelButton = box->button(QDialogButtonBox::Cancel);
  Bind(cancelButton, cancel);
  box->button(QDialogButtonBox::Ok)->setDefault(true);
  // By itself a dialog takes Escape for its close box.
  QObject::connect(new QShortcut(Qt::Key_Escape, form), &QShortcut::activated, cancelButton,
                   &QPushButton::click);
  return box;
}

}  // namespace quillbox

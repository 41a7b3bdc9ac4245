#include "qt_windows/account_form.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "options/account.h"
#include "qt_windows/form_binding.h"
#include "qt_windows/form_dialog.h"
#include "qt_windows/window_place.h"

namespace quillbox {
namespace {

constexpr int kLettersInLine = 36;  // an address of ordinary length is seen whole

QLineEdit* NewLine(TextField& control) {
  auto* const line = new QLineEdit;
  Bind(line, control);
  return line;
}

// What goes on while a grant is asked for.
QWidget* NewWaitingRow(QWidget* form, Account& model) {
  auto* const row = new QWidget(form);
  auto* const parts = new QHBoxLayout(row);
  parts->setContentsMargins({});
  auto* const note = new QLabel;
  note->setWordWrap(true);
  parts->addWidget(note, 1);
  auto* const stop = new QPushButton;
  Bind(stop, model.StopWaiting);
  parts->addWidget(stop);
  Bind(note, model.Waiting, row);
  return row;
}

}  // namespace

QWidget* NewAccountForm(Account& model, QWidget* parent) {
  QDialog* const form = NewFormDialog("Account", model.Caption, parent);
  form->setWindowModality(Qt::WindowModal);

  auto* const lines = new QFormLayout(form);
  lines->setSizeConstraint(QLayout::SetFixedSize);
  for (TextField* const control : {&model.Text1, &model.Text2}) {
    QLineEdit* const line = NewLine(*control);
    line->setMinimumWidth(line->fontMetrics().averageCharWidth() * kLettersInLine);
    lines->addRow(NewLabelFor(line, *control), line);
  }
  QLineEdit* const password = NewLine(model.Text3);
  auto* const connect = new QPushButton;
  Bind(connect, model.Connect);
  auto* const both = new QHBoxLayout;
  both->addWidget(password);
  both->addWidget(connect);
  lines->addRow(NewLabelFor(password, model.Text3), both);
  lines->addRow(NewWaitingRow(form, model));
  lines->addRow(NewOkCancelBox(form, model.Command1, model.Command2));
  if (parent != nullptr) CentreWindow(form, parent->frameGeometry());
  return form;
}

}  // namespace quillbox

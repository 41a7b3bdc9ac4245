#include "qt_windows/opts_form.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <memory>

#include "options/account.h"
#include "options/opts.h"
#include "qt_base/icon_picture.h"
#include "qt_base/unicode_text.h"
#include "qt_windows/form_binding.h"
#include "qt_windows/form_dialog.h"
#include "qt_windows/opts_pages.h"

namespace quillbox {
namespace {

QTabWidget* NewPages(Opts& model) {
  const struct {
    QWidget* Page;
    QIcon Picture;
  } pages[] = {
      {NewGeneralPage(model.GeneralFrame), PagePicture("general")},
      {NewAdSensePage(model.AdSenseFrame), PagePicture("ad-sense")},
      {NewAutoUpdatePage(model.AutoUpdateFrame), PagePicture("auto-update")},
      {NewTrayIconPage(model.TrayIconFrame), OwnPicture()},
      {NewTrayTooltipPage(model.TrayTooltipFrame), PagePicture("tray-tooltip")},
      {NewSoundsPage(model.SoundsFrame), PagePicture("sounds")},
      {NewInternetPage(model.ProxyFrame), PagePicture("internet")},
  };
  auto* const tabs = new QTabWidget;
  tabs->setUsesScrollButtons(false);  // all seven are to be seen
  std::size_t index = 0;
  for (const auto& page : pages) {
    tabs->addTab(page.Page, page.Picture, ToUnicode(model.Tabs.Items().at(index++)));
  }
  Bind(tabs, model.Tabs);
  return tabs;
}

// On the page of accounts there is but one thing to do while there is none. On the next page the
// focus is where it would be without that, so that Return is "OK" there.
void LeadToAdd(QTabWidget* tabs) {
  const auto led = std::make_shared<bool>(false);
  const auto lead = [tabs, led] {
    const auto* const accounts = tabs->currentWidget()->findChild<QComboBox*>("Combo3");
    const bool leads = accounts != nullptr && accounts->count() == 0;
    if (leads) {
      tabs->currentWidget()->findChild<QPushButton*>("Command5")->setFocus();
    } else if (*led) {
      tabs->tabBar()->setFocus();
    }
    *led = leads;
  };
  QObject::connect(tabs, &QTabWidget::currentChanged, tabs, lead);
  lead();
}

// The usual keys for the next tab, wherever in the form the person is.
void AddTurnKeys(QDialog* form, QTabWidget* tabs) {
  static constexpr struct {
    QKeySequence::StandardKey Keys;
    int Step;
  } kTurns[] = {{QKeySequence::NextChild, 1}, {QKeySequence::PreviousChild, -1}};
  for (const auto& turn : kTurns) {
    OnKeys(form, turn.Keys, [tabs, step = turn.Step] {
      const int count = tabs->count();
      tabs->setCurrentIndex((tabs->currentIndex() + step + count) % count);
    });
  }
}

}  // namespace

QWidget* NewOptsForm(Opts& model) {
  QDialog* const form = NewFormDialog("Opts", model.Caption, nullptr);
  auto* const column = new QVBoxLayout(form);
  column->setSizeConstraint(QLayout::SetFixedSize);
  QTabWidget* const tabs = NewPages(model);
  column->addWidget(tabs);
  AddTurnKeys(form, tabs);
  LeadToAdd(tabs);

  QDialogButtonBox* const buttons = NewOkCancelBox(form, model.Command1, model.Command2);
  Bind(buttons->addButton(QDialogButtonBox::Apply), model.Mark.ApplyButton);
  Bind(buttons->addButton(QDialogButtonBox::Help), model.Command8);
  column->addWidget(buttons);
  return form;
}

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

#include "qt_windows/opts_form.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <memory>

#include "options/opts.h"
#include "qt_base/icon_picture.h"
#include "qt_base/unicode_text.h"
#include "qt_windows/form_binding.h"
#include "qt_windows/form_dialog.h"
#include "qt_windows/opts_pages.h"
#include "qt_windows/page_pictures.h"

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

}  // namespace quillbox

#include "qt_windows/opts_form.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

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

// The usual keys for the next tab, wherever in the form the person is.
void AddTurnKeys(QDialog* form, QTabWidget* tabs) {
  static constexpr struct {
    QKeySequence::StandardKey Keys;
    int Step;
  } kTurns[] = {{QKeySequence::NextChild, 1}, {QKeySequence::PreviousChild, -1}};
  for (const auto& turn : kTurns) {
    QObject::connect(new QShortcut(turn.Keys, form), &QShortcut::activated, tabs,
                     [tabs, step = turn.Step] {
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

  QDialogButtonBox* const buttons = NewOkCancelBox(form, model.Command1, model.Command2);
  Bind(buttons->addButton(QDialogButtonBox::Apply), model.Mark.ApplyButton);
  Bind(buttons->addButton(QDialogButtonBox::Help), model.Command8);
  column->addWidget(buttons);
  return form;
}

}  // namespace quillbox

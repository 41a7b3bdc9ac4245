// The pages "Tray Icon" and "Tray Tooltip".
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "options/tray_frames.h"
#include "qt_windows/form_binding.h"
#include "qt_windows/opts_page.h"
#include "qt_windows/opts_pages.h"

namespace quillbox {
namespace {

// In columns; those of the whole month fill the last one.
QLayout* NewValuesGrid(TrayTooltipFrame& model) {
  static constexpr int kDayRows = 4;
  static constexpr int kDayValues = 8;
  auto* const grid = new QGridLayout;
  int index = 0;
  for (CheckBox* const control : model.Values()) {
    auto* const box = new QCheckBox;
    Bind(box, *control);
    const int column = std::min(index, kDayValues) / kDayRows;
    grid->addWidget(box, index - column * kDayRows, column, Qt::AlignLeft);
    grid->setColumnStretch(column, 1);
    ++index;
  }
  return grid;
}

}  // namespace

QWidget* NewTrayIconPage(TrayIconFrame& model) {
  auto* const page = new OptsPage("TrayIconFrame");
  page->Heading("Tray Icon");
  auto* const row = new QHBoxLayout;
  auto* const picture = new QLabel;
  Bind(picture, model.Image1);
  row->addWidget(picture);
  row->addSpacing(page->fontMetrics().height() / 2);
  for (Button* const control : {&model.Command3, &model.Command4}) {
    auto* const button = new QPushButton;
    Bind(button, *control);
    row->addWidget(button);
  }
  row->addStretch();
  page->Add(row);

  page->Heading("Click Action");
  page->Add(model.Combo5);
  page->Add(model.Combo1);
  page->Add(model.Combo2);
  return page;
}

QWidget* NewTrayTooltipPage(TrayTooltipFrame& model) {
  auto* const page = new OptsPage("TrayTooltipFrame");
  page->Heading("Values to Show in Tray Tooltip");
  page->Add(NewValuesGrid(model));
  page->Heading("Miscellaneous");
  page->AddPair(model.Combo6, model.Combo7);
  page->Add(model.Check4);
  return page;
}

}  // namespace quillbox

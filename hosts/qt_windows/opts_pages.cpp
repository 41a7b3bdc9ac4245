#include "qt_windows/opts_pages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "options/ad_sense_frame.h"
#include "options/general_frames.h"
#include "options/sounds_frame.h"
#include "options/tray_frames.h"
#include "qt_windows/form_binding.h"
#include "qt_windows/opts_page.h"
#include "qt_windows/own_widgets.h"

static void LoadPageResources() {
  Q_INIT_RESOURCE(quillbox_icons);
}

namespace quillbox {
namespace {

constexpr int kSizes[] = {16, 24, 32};

}  // namespace

QIcon PagePicture(const QString& name) {
  LoadPageResources();
  QIcon icon;
  for (const int size : kSizes) {
    icon.addFile(QString(":/pages/%1-%2.png").arg(name).arg(size), {size, size});
  }
  return icon;
}

QWidget* NewGeneralPage(GeneralFrame& model) {
  auto* const page = new OptsPage("GeneralFrame");
  page->Heading("Startup");
  page->Add(model.Check11);
  page->Add(model.Check5);
  page->Add(model.Check14, "refreshing tooltip");
  page->Heading("Miscellaneous");
  page->Add(model.Check3);
  page->Add(model.Check1);
  return page;
}

QWidget* NewAdSensePage(AdSenseFrame& model) {
  auto* const page = new OptsPage("AdSenseFrame");
  page->Heading("AdSense Account(s)");
  page->AddBelow(model.Combo3);
  auto* const buttons = new QHBoxLayout;
  for (Button* const control : {&model.Command5, &model.Command7, &model.Command6}) {
    auto* const button = new QPushButton;
    Bind(button, *control);
    buttons->addWidget(button);
  }
  buttons->addStretch();
  page->Add(buttons);
  return page;
}

QWidget* NewAutoUpdatePage(AutoUpdateFrame& model) {
  auto* const page = new OptsPage("AutoUpdateFrame");
  page->Heading("Auto Update");
  page->Add(model.Check7);
  page->AddBelow(model.Combo4);
  return page;
}

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

namespace {

QPushButton* NewPreviewButton(Button& control) {
  auto* const button = new QPushButton(PagePicture("preview"), "");
  Bind(button, control);
  button->setToolTip(button->accessibleName());
  return button;
}

}  // namespace

QWidget* NewSoundsPage(SoundsFrame& model) {
  auto* const page = new OptsPage("SoundsFrame");
  page->Heading("Sounds");
  auto* const events = new QComboBox;
  events->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  Bind(events, model.Combo10);
  page->Add(NewLabelFor(events, model.Combo10), events, {});

  auto* const sounds = new NameBox;
  Bind(sounds, model.Combo11);
  auto* const browse = new QPushButton;
  QPushButton* const preview = NewPreviewButton(model.Command9);
  Bind(browse, model.Command10);
  page->Add(NewLabelFor(sounds, model.Combo11), sounds, {preview, browse});
  return page;
}

QWidget* NewInternetPage(ProxyFrame& model) {
  auto* const page = new OptsPage("ProxyFrame");
  page->Heading("Connection");
  page->Add(model.Check12, "connection is found.");
  page->Note(
      "This option should only be enabled if you are not using an \"always-on\" Internet "
      "connection (e.g. dial-up).");
  page->Heading("Proxy Server");
  page->Note(
      "Enter your proxy server settings below if you connect to the Internet via a proxy "
      "server.");
  page->AddPair(model.Text3, model.Text4);
  page->AddPair(model.Text1, model.Text2);
  return page;
}

}  // namespace quillbox

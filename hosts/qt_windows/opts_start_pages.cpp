// The pages "General", "AdSense" and "Auto Update".
#include <QHBoxLayout>
#include <QPushButton>

#include "options/ad_sense_frame.h"
#include "options/general_frames.h"
#include "qt_windows/form_binding.h"
#include "qt_windows/opts_page.h"
#include "qt_windows/opts_pages.h"

namespace quillbox {

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

}  // namespace quillbox
